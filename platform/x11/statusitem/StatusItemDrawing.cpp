#include "platform/x11/statusitem/StatusItemDrawing.h"

#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr double backdropCornerRadius = 4.0;

QFont titleFont() {
  return toQt(Font{.size = systemFontSize(), .weight = FontWeight::Medium});
}

double naturalWidth(const StatusButtonContent& content) {
  const double image = content.image ? content.image->size.width : 0.0;
  return std::ceil(image + measureText(content.title.text, titleFont()).width);
}

}  // namespace

double statusItemWidth(const StatusButtonContent& content, const StatusItemLength& length, double available) {
  double width = statusBarHeight;
  if (const auto* fixed = std::get_if<FixedLength>(&length)) {
    width = fixed->points;
  } else if (std::holds_alternative<VariableLength>(length)) {
    width = naturalWidth(content);
  }
  return std::clamp(width, statusBarHeight, std::max(available, statusBarHeight));
}

double statusItemCornerRadius(const StatusButtonContent& content) {
  return content.background ? content.cornerRadius : backdropCornerRadius;
}

void drawStatusItem(QPainter& painter, const QRectF& bounds, const StatusButtonContent& content,
                    const StatusBarColors& colors) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(content.background ? toQt(*content.background) : colors.backdrop);
  const double radius = statusItemCornerRadius(content);
  painter.drawRoundedRect(bounds, radius, radius);
  QRectF rest = bounds;
  if (content.image) {
    const Size size = content.image->size;
    const bool alone = content.title.text.empty();
    const double x = alone ? std::round(bounds.center().x() - size.width / 2) : bounds.left();
    const QRectF target(x, std::round(bounds.center().y() - size.height / 2), size.width, size.height);
    drawImage(painter, target, *content.image, colors.text);
    rest.setLeft(target.right());
  }
  const QColor color = content.title.color ? toQt(*content.title.color) : colors.text;
  drawText(painter, rest, content.title.text, titleFont(), color, TextAlignment::Center);
}

}  // namespace roomlattice::platform::x11

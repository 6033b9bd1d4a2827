#include "platform/x11/statusitem/StatusItemDrawing.h"

#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

/// The item's background keeps clear of the edges of the bar.
constexpr double horizontalInset = 1.0;
constexpr double verticalInset = 3.0;

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
  // A window has at least one pixel.
  return std::clamp(width, 1.0, std::max(available, 1.0));
}

void drawStatusItem(QPainter& painter, const QRectF& bounds, const StatusButtonContent& content,
                    const StatusBarColors& colors) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(bounds, colors.backdrop);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  if (content.background) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQt(*content.background));
    const QRectF plate = bounds.adjusted(horizontalInset, verticalInset, -horizontalInset, -verticalInset);
    painter.drawRoundedRect(plate, content.cornerRadius, content.cornerRadius);
  }
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

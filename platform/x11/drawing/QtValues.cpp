#include "platform/x11/drawing/QtValues.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

/// How much of the strength of ordinary text secondary text has.
constexpr float secondaryOpacity = 0.7F;

float component(double value) {
  return static_cast<float>(std::clamp(value, 0.0, 1.0));
}

}  // namespace

QColor toQt(const Color& color) {
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue), component(color.alpha));
}

Color fromQt(const QColor& color) {
  const QColor rgb = color.toRgb();
  return {static_cast<double>(rgb.redF()), static_cast<double>(rgb.greenF()), static_cast<double>(rgb.blueF()),
          static_cast<double>(rgb.alphaF())};
}

QColor toQt(const TextColor& color, const QPalette& palette) {
  if (const auto* given = std::get_if<Color>(&color)) {
    return toQt(*given);
  }
  QColor label = palette.color(QPalette::WindowText);
  if (std::get<SystemColor>(color) == SystemColor::SecondaryLabel) {
    label.setAlphaF(label.alphaF() * secondaryOpacity);
  }
  return label;
}

QString withoutShortcuts(QString text) {
  return text.replace(u'&', QStringLiteral("&&"));
}

QSize toQt(const Size& size) {
  return {static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
}

QRectF toQt(const Rect& rect, double height) {
  return {rect.minX(), height - rect.maxY(), rect.size.width, rect.size.height};
}

Point fromQt(const QPointF& point, double height) {
  return {point.x(), height - point.y()};
}

}  // namespace roomlattice::platform::x11

#include "platform/x11/drawing/QtValues.h"

#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

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

QRectF toQt(const Rect& rect, double height) {
  return {rect.minX(), height - rect.maxY(), rect.size.width, rect.size.height};
}

Point fromQt(const QPointF& point, double height) {
  return {point.x(), height - point.y()};
}

}  // namespace roomlattice::platform::x11

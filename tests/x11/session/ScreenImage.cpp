#include "tests/x11/session/ScreenImage.h"

#include <cstdlib>
#include <stdexcept>

namespace roomlattice::tests {

using platform::x11::X11Connection;
using platform::x11::XcbPointer;

QImage screenImage(X11Connection& connection, const QRect& area) {
  const auto cookie =
      xcb_get_image(connection.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(), static_cast<std::int16_t>(area.x()),
                    static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                    static_cast<std::uint16_t>(area.height()), ~0U);
  const XcbPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(connection.raw(), cookie, nullptr));
  if (reply == nullptr) {
    throw std::runtime_error("the screen cannot be read");
  }
  return QImage(xcb_get_image_data(reply.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

QColor screenColor(X11Connection& connection, const QPoint& pixel) {
  return screenImage(connection, {pixel, QSize(1, 1)}).pixelColor(0, 0);
}

bool similar(const QColor& a, const QColor& b, int tolerance) {
  return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
         std::abs(a.blue() - b.blue()) <= tolerance;
}

int countPixels(const QImage& image, const QColor& color, int tolerance) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += similar(image.pixelColor(x, y), color, tolerance) ? 1 : 0;
    }
  }
  return count;
}

}  // namespace roomlattice::tests

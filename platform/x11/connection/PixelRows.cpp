#include "platform/x11/connection/PixelRows.h"

#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

// Far less than a request may have, so that neither side needs much memory for one.
constexpr std::size_t requestBytes = std::size_t{128} * 1024;

}  // namespace

void put(const PixelRows& rows, xcb_connection_t* raw, xcb_drawable_t drawable, xcb_gcontext_t context,
         const QPoint& corner) {
  const int most =
      static_cast<int>(std::max<std::size_t>(requestBytes / std::max<std::size_t>(rows.bytesPerRow, 1), 1));
  for (int y = 0; y < rows.size.height(); y += most) {
    const int height = std::min(most, rows.size.height() - y);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, context, static_cast<std::uint16_t>(rows.size.width()),
                  static_cast<std::uint16_t>(height), static_cast<std::int16_t>(corner.x()),
                  static_cast<std::int16_t>(corner.y() + y), 0, rows.depth,
                  static_cast<std::uint32_t>(rows.bytesPerRow * static_cast<std::size_t>(height)),
                  rows.bytes + static_cast<std::size_t>(y) * rows.bytesPerRow);
  }
}

}  // namespace roomlattice::platform::x11

#pragma once

#include <QPoint>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <xcb/xcb.h>

namespace roomlattice::platform::x11 {

/// Pixels in memory that belongs to somebody else, in the form in which the server takes them (ZPixmap).
struct PixelRows {
  const std::uint8_t* bytes = nullptr;
  QSize size;
  std::size_t bytesPerRow = 0;
  std::uint8_t depth = 0;
};

/// Puts them on a window or a pixmap of that depth from `corner` on. Waits for nobody.
void put(const PixelRows& rows, xcb_connection_t* raw, xcb_drawable_t drawable, xcb_gcontext_t context,
         const QPoint& corner);

}  // namespace roomlattice::platform::x11

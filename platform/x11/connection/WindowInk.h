#pragma once

#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/PictureFormats.h"

#include <QRect>
#include <cstddef>
#include <cstdint>
#include <vector>
#include <xcb/render.h>

namespace roomlattice::platform::x11 {

/// How much of each pixel of an area is covered, 0–255, row by row; each row is followed by as many unused bytes as
/// make its length a multiple of four.
struct InkMask {
  QRect area;  // in pixels of the window
  std::vector<std::uint8_t> coverage;

  std::size_t bytesPerRow() const { return (static_cast<std::size_t>(area.width()) + 3) / 4 * 4; }
};

/// Draws in one colour on a window, such as letters, by the server's RENDER extension: a quarter of what the pixels
/// take goes to the server.
class WindowInk {
 public:
  /// The window, which has that visual, must outlive it. Waits for the server only where the formats do.
  WindowInk(const NativeWindow& window, xcb_visualid_t visual, PictureFormats& formats);

  /// Servers may lack the extension, or know no format for the window.
  bool isAvailable() const { return windowFormat_ != 0 && maskFormat_ != 0; }

  enum class Ground {
    AsItIs,
    /// Black, whatever was there. On a window without alpha, this spares the server to read it.
    Black,
  };

  /// Blends `color`, an opaque one of ARGB32, with the ground. Waits for nobody.
  void pour(std::uint32_t color, const InkMask& mask, Ground ground) const;

 private:
  xcb_connection_t* raw_;
  xcb_window_t window_;
  xcb_render_pictformat_t windowFormat_;
  xcb_render_pictformat_t maskFormat_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/x11/connection/GlyphSet.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/PackedPicture.h"

#include <cstdint>
#include <xcb/render.h>

namespace roomlattice::platform::x11 {

/// Draws in one colour on a window, such as letters, by the server's RENDER extension. The server is sent a shape only
/// when it does not have it from an earlier time.
class WindowInk {
 public:
  /// The window, which has that visual, and the set must outlive it. Waits for the server only where the set's formats
  /// do.
  WindowInk(const NativeWindow& window, xcb_visualid_t visual, GlyphSet& glyphs);

  /// Servers may lack the extension, or know no format for the window.
  bool isAvailable() const { return windowFormat_ != 0 && glyphs_.id() != 0; }

  /// Blends the details that are but ink with what is on the window; the picture must have an ink. Waits for nobody.
  void pour(const PackedPicture& picture) const;

 private:
  xcb_connection_t* raw_;
  xcb_window_t window_;
  xcb_render_pictformat_t windowFormat_;
  GlyphSet& glyphs_;
};

}  // namespace roomlattice::platform::x11

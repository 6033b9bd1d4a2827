#pragma once

#include "platform/x11/connection/GlyphSet.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/PackedPicture.h"
#include "platform/x11/connection/WindowInk.h"

#include <QImage>
#include <QPoint>
#include <QRegion>
#include <cstdint>
#include <optional>

namespace roomlattice::platform::x11 {

/// Puts pictures on a window without the toolkit's help, which would keep a copy in memory that it shares with the
/// server, and wait for the server before it writes there again. The widget must have no paint engine.
class WindowPicture {
 public:
  /// The window must outlive it. Waits for the server.
  explicit WindowPicture(const NativeWindow& window);
  ~WindowPicture();
  WindowPicture(const WindowPicture&) = delete;
  WindowPicture& operator=(const WindowPicture&) = delete;

  /// Replaces the pixels from `corner` on, in pixels of the window. `picture` is one of ARGB32, premultiplied. Waits
  /// for nobody.
  void put(const QImage& picture, const QPoint& corner);

  /// The same for all of the window. Waits for the server only where the set's formats do.
  void put(const PackedPicture& picture, GlyphSet& glyphs);

 private:
  void fill(const QRegion& areas, std::uint32_t color);

  const NativeWindow& window_;
  xcb_gcontext_t context_;
  std::uint8_t depth_ = 0;
  xcb_visualid_t visual_ = 0;
  // Made when it is first wanted.
  std::optional<WindowInk> ink_;
};

}  // namespace roomlattice::platform::x11

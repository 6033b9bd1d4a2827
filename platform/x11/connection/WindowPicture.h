#pragma once

#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/PackedPicture.h"

#include <QImage>
#include <QPoint>
#include <cstdint>

namespace roomlattice::platform::x11 {

/// Puts pictures on a window without the toolkit's help, which would keep a copy in memory that it shares with the
/// server, and wait for the server before it writes there again. The widget must have no paint engine.
class WindowPicture {
 public:
  /// The window must outlive it.
  explicit WindowPicture(const NativeWindow& window);
  ~WindowPicture();
  WindowPicture(const WindowPicture&) = delete;
  WindowPicture& operator=(const WindowPicture&) = delete;

  /// Replaces the pixels from `corner` on, in pixels of the window. `picture` is one of ARGB32, premultiplied. Waits
  /// for nobody.
  void put(const QImage& picture, const QPoint& corner);

  /// The same for all of the window.
  void put(const PackedPicture& picture);

 private:
  xcb_connection_t* raw_;
  xcb_window_t window_;
  xcb_gcontext_t context_;
  std::uint8_t depth_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QRect>
#include <cstdint>
#include <functional>
#include <optional>

namespace roomlattice::platform::x11 {

/// Whether the window that the user works in fills a screen (EWMH, _NET_WM_STATE_FULLSCREEN), for those who have to get
/// out of its way themselves.
class FullScreenWatch {
 public:
  /// `changed` is called from the event loop after each change. Waits for the server.
  FullScreenWatch(X11Connection& connection, std::function<void()> changed);
  FullScreenWatch(const FullScreenWatch&) = delete;
  FullScreenWatch& operator=(const FullScreenWatch&) = delete;
  ~FullScreenWatch();

  /// Where that window is, in pixels of the root window; nothing while it fills no screen.
  const std::optional<QRect>& area() const { return area_; }

 private:
  void batchEnded();
  void follow();
  void leave();
  std::optional<QRect> readArea() const;

  X11Connection& connection_;
  std::function<void()> changed_;
  xcb_window_t active_ = XCB_WINDOW_NONE;
  // What this connection heard of that window before.
  std::uint32_t formerEvents_ = XCB_EVENT_MASK_NO_EVENT;
  std::optional<QRect> area_;
  bool isOtherActive_ = false;
  bool isOtherState_ = false;
  Registration propertyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

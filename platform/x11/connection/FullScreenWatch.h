#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QRect>
#include <functional>
#include <optional>

namespace roomlattice::platform::x11 {

/// Whether the window that the user works in fills a screen (EWMH, _NET_WM_STATE_FULLSCREEN), for those who have to get
/// out of its way themselves.
class FullScreenWatch {
 public:
  /// `changed` is called from the event loop after each change.
  FullScreenWatch(X11Connection& connection, std::function<void()> changed);

  /// Where that window is, in pixels of the root window; nothing while it fills no screen.
  const std::optional<QRect>& area() const { return area_; }

 private:
  void batchEnded();
  void follow();
  void update();
  std::optional<QRect> readArea() const;

  X11Connection& connection_;
  std::function<void()> changed_;
  xcb_window_t active_ = XCB_WINDOW_NONE;
  std::optional<QRect> area_;
  bool isOtherActive_ = false;
  bool isOtherState_ = false;
  Registration propertyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

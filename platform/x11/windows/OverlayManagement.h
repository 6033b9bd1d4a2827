#pragma once

#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"
#include "support/Listeners.h"

#include <functional>

namespace roomlattice::platform::x11 {

/// Whether overlay windows can be left to the window manager that runs: told of their desktops, it shows them while
/// these are in front. Some manage no windows of their types, and would show them for ever.
class OverlayManagement {
 public:
  OverlayManagement(X11Connection& connection, WindowManagerWatch& windowManager);

  /// Whether an overlay may be on its desktop while that is not in front, for the window manager to show it in time.
  bool mayWaitOnDesktops() const;

  /// To be called whenever an overlay was mapped: after a while it should be among the windows that the window manager
  /// says it manages (EWMH: _NET_CLIENT_LIST). One that was too busy to say so is believed the next time.
  void check(xcb_window_t window);

  /// Calls `handler` from the event loop when the answer has changed.
  Registration observe(std::function<void()> handler);

 private:
  void look();

  X11Connection& connection_;
  WindowManagerWatch& windowManager_;
  xcb_window_t checked_ = XCB_WINDOW_NONE;
  bool seenUnmanaged_ = false;
  linux::OneShotTimer lookSoon_{[this] { look(); }};
  Listeners<> listeners_;
  Registration windowManagerChanges_;
};

}  // namespace roomlattice::platform::x11

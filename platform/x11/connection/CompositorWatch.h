#pragma once

#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/X11Connection.h"
#include "support/Listeners.h"

#include <cstddef>
#include <functional>

namespace roomlattice::platform::x11 {

/// Whether translucent windows are blended with what is below them.
///
/// A compositing manager owns the selection _NET_WM_CM_Sn (EWMH), but it may take it before it starts and keep it
/// without compositing; so a window is asked for as well that nobody has redirected unless there is compositing.
class CompositorWatch {
 public:
  explicit CompositorWatch(X11Connection& connection);

  bool isCompositing() const { return compositing_; }

  /// Calls `handler` after each change, and once more a second after compositing has begun, when what was drawn
  /// meanwhile is to be drawn again: some compositing managers (picom 12) do not see that as long as they start, and
  /// leave the window out until it is drawn again. One that was there before this object may be starting as well, as
  /// at the start of a session.
  Registration observe(std::function<void()> handler);

 private:
  void ownerChanged();
  void update();
  bool redirectsWindows() const;

  X11Connection& connection_;
  bool canRedirect_ = false;
  bool compositing_ = false;
  std::size_t retries_ = 0;
  linux::OneShotTimer retry_{[this] { update(); }};
  linux::OneShotTimer settle_{[this] { listeners_.notify(); }};
  Listeners<> listeners_;
  Registration selectionEvents_;
};

}  // namespace roomlattice::platform::x11

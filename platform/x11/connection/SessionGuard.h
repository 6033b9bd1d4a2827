#pragma once

#include "platform/linux/system/OneShotTimer.h"
#include "platform/linux/system/TerminationSignals.h"
#include "platform/x11/connection/InstanceLock.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"

#include <chrono>
#include <functional>

namespace roomlattice::platform::x11 {

enum class WindowManagerWait { Found, TimedOut, ServerLost, Terminated };

/// Waits until a window manager runs that supports EWMH, but not beyond `limit`, nor when a signal asks the program to
/// end. Needs no event loop.
WindowManagerWait waitForWindowManager(X11Connection& connection, const linux::TerminationSignals& signals,
                                       std::chrono::milliseconds limit);

/// From now on the program ends, as a SessionGuard ends it, when the toolkit's connection breaks. To be called before
/// the toolkit connects: until there is a SessionGuard, nothing else watches.
void watchToolkitConnection();

/// Ends the program, with a line on standard error and status 1, when it has lost what it runs on: at once when the X
/// server has gone or another program has taken the claim to the display, and when the window manager has gone and none
/// has come for a while.
class SessionGuard {
 public:
  /// `work` is called, by any thread, before the process ends without leaving the event loop.
  SessionGuard(X11Connection& connection, InstanceLock& lock, WindowManagerWatch& windowManager,
               std::function<void()> work);
  ~SessionGuard();
  SessionGuard(const SessionGuard&) = delete;
  SessionGuard& operator=(const SessionGuard&) = delete;

 private:
  void windowManagerChanged();

  WindowManagerWatch& windowManager_;
  linux::OneShotTimer patience_;
  Registration loss_;
  Registration lossOfClaim_;
  Registration windowManagerChanges_;
};

}  // namespace roomlattice::platform::x11

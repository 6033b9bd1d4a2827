#pragma once

#include "platform/linux/system/TerminationSignals.h"
#include "platform/x11/connection/X11Connection.h"

#include <chrono>

namespace roomlattice::platform::x11 {

enum class PanelWait {
  Found,
  /// There may be none in this session.
  TimedOut,
  Terminated,
};

/// Whether a panel is there: a tray, a dock among the windows, or a window manager with a panel of its own.
bool hasPanel(X11Connection& connection);

/// Waits for a panel, but not beyond `limit`, nor when the server goes or a signal asks the program to end. Needs no
/// event loop.
PanelWait waitForPanel(X11Connection& connection, const linux::TerminationSignals& signals,
                       std::chrono::milliseconds limit);

}  // namespace roomlattice::platform::x11

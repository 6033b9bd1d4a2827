#pragma once

#include "platform/Dispatcher.h"

namespace roomlattice::platform::simulated {

/// What can go wrong on a simulated desktop; nothing does by default. Counts run down as the fault strikes. Every
/// switch works from the moment it is set.
struct Faults {
  /// The user has not given the permission for taps and synthetic events: no new tap is made, those there are fall
  /// silent, and what the program posts is dropped.
  bool accessibilityDenied = false;

  /// So many of the next events that the program wants to make cannot be made.
  int eventsNotCreated = 0;

  /// The system gives no global pointer monitors.
  bool pointerMonitorsRefused = false;

  /// The Dock ignores so many of the next completed swipes, whoever makes them.
  int swipesDropped = 0;

  /// The Dock ignores every swipe.
  bool allSwipesDropped = false;

  /// Added to the Dock's settling time.
  Duration swipesDelayedBy{0};

  /// The workspace reports each change so many times more than once.
  int extraActiveSpaceNotices = 0;

  /// Adding, removing and moving desktops is not reported until another desktop becomes active, as on macOS.
  bool listChangesNotReported = false;

  /// Settings can be read but not stored: what the program writes is lost with the process.
  bool defaultsUnwritable = false;

  /// The status bar gives its items no button.
  bool statusButtonMissing = false;
};

}  // namespace roomlattice::platform::simulated

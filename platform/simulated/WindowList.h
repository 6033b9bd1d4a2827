#pragma once

#include "platform/WindowServer.h"

#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedTabbedWindow;
class SimulatedWindow;

/// The windows the program has now, ordered in or not. The pointers are good until the program runs on.
class WindowList {
 public:
  /// All overlay windows, the backmost first: by level, then by when they were last ordered front.
  std::vector<SimulatedWindow*> overlays() const;

  /// Those a desktop holds, seen or not: ordered in, and attached to it or on all desktops.
  std::vector<SimulatedWindow*> on(SpaceID space) const;

  /// Of those, the ones that can be seen while the desktop is in front: with an opacity above 0.
  std::vector<SimulatedWindow*> visibleOn(SpaceID space) const;

  /// Null for an unknown number.
  SimulatedWindow* find(WindowNumber number) const;

  const std::vector<SimulatedTabbedWindow*>& tabbed() const { return tabbed_; }

  /// A removed desktop takes no window along; those that were on it alone are on none.
  void spaceRemoved(SpaceID space);

  // For the windows themselves.
  WindowNumber add(SimulatedWindow& window);
  void remove(SimulatedWindow& window);
  void bringToFront(SimulatedWindow& window);
  void add(SimulatedTabbedWindow& window);
  void remove(SimulatedTabbedWindow& window);

 private:
  std::vector<SimulatedWindow*> overlays_;
  std::vector<SimulatedTabbedWindow*> tabbed_;
  WindowNumber nextNumber_ = 1;
};

}  // namespace roomlattice::platform::simulated

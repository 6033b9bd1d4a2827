#pragma once

#include "platform/Window.h"

#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedTabbedWindow;
class SimulatedWindow;

/// The windows the program has now, ordered in or not. The pointers are good until the program runs on.
class WindowList {
 public:
  /// All overlay windows, the backmost first: by level, then by when they were last ordered front.
  std::vector<SimulatedWindow*> overlays() const;

  /// Null for an unknown number.
  SimulatedWindow* find(WindowNumber number) const;

  const std::vector<SimulatedTabbedWindow*>& tabbed() const { return tabbed_; }

  // For the windows themselves.
  WindowNumber makeNumber() { return nextNumber_++; }
  Registration add(SimulatedWindow& window, WindowNumber number, WindowLevel level);
  Registration add(SimulatedTabbedWindow& window);
  void bringToFront(WindowNumber number);

 private:
  struct Overlay {
    SimulatedWindow* window = nullptr;
    WindowNumber number = 0;
    WindowLevel level = WindowLevel::Floating;
  };

  std::vector<Overlay> overlays_;
  std::vector<SimulatedTabbedWindow*> tabbed_;
  WindowNumber nextNumber_ = 1;
};

}  // namespace roomlattice::platform::simulated

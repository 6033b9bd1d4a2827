#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedWindow.h"

#include <algorithm>
#include <vector>

namespace roomlattice::tests {

/// The windows of a level that the program shows, by their order on the screen; invisible ones included, but none that
/// has been ordered out.
inline std::vector<platform::simulated::SimulatedWindow*> shownWindows(platform::simulated::SimulatedDesktop& desktop,
                                                                       platform::WindowLevel level) {
  std::vector<platform::simulated::SimulatedWindow*> windows = desktop.windows().overlays();
  std::erase_if(windows, [level](const auto* window) { return !window->isOrderedIn() || window->level() != level; });
  return windows;
}

inline std::vector<platform::simulated::SimulatedWindow*> labelsOf(platform::simulated::SimulatedDesktop& desktop) {
  return shownWindows(desktop, platform::WindowLevel::Floating);
}

/// Null where there is none.
inline platform::simulated::SimulatedWindow* labelOn(platform::simulated::SimulatedDesktop& desktop,
                                                     platform::SpaceID space) {
  const auto labels = labelsOf(desktop);
  const auto found = std::ranges::find_if(labels, [space](const auto* label) { return label->isOn(space); });
  return found == labels.end() ? nullptr : *found;
}

inline std::vector<platform::simulated::SimulatedWindow*> tourOverlaysOf(
    platform::simulated::SimulatedDesktop& desktop) {
  return shownWindows(desktop, platform::WindowLevel::StatusWindow);
}

}  // namespace roomlattice::tests

#include "platform/simulated/WindowList.h"

#include "platform/simulated/SimulatedWindow.h"

#include <algorithm>

namespace roomlattice::platform::simulated {

std::vector<SimulatedWindow*> WindowList::overlays() const {
  std::vector<SimulatedWindow*> windows = overlays_;
  std::ranges::stable_sort(windows, {}, &SimulatedWindow::level);
  return windows;
}

std::vector<SimulatedWindow*> WindowList::on(SpaceID space) const {
  std::vector<SimulatedWindow*> windows = overlays();
  std::erase_if(windows, [space](const SimulatedWindow* window) { return !window->isOn(space); });
  return windows;
}

std::vector<SimulatedWindow*> WindowList::visibleOn(SpaceID space) const {
  std::vector<SimulatedWindow*> windows = on(space);
  std::erase_if(windows, [](const SimulatedWindow* window) { return window->alpha() <= 0.0; });
  return windows;
}

SimulatedWindow* WindowList::find(WindowNumber number) const {
  const auto found = std::ranges::find(overlays_, number, &SimulatedWindow::number);
  return found == overlays_.end() ? nullptr : *found;
}

void WindowList::spaceRemoved(SpaceID space) {
  for (SimulatedWindow* window : overlays_) {
    window->detach(space);
  }
}

WindowNumber WindowList::add(SimulatedWindow& window) {
  overlays_.push_back(&window);
  return nextNumber_++;
}

void WindowList::remove(SimulatedWindow& window) {
  std::erase(overlays_, &window);
}

void WindowList::bringToFront(SimulatedWindow& window) {
  remove(window);
  overlays_.push_back(&window);
}

void WindowList::add(SimulatedTabbedWindow& window) {
  tabbed_.push_back(&window);
}

void WindowList::remove(SimulatedTabbedWindow& window) {
  std::erase(tabbed_, &window);
}

}  // namespace roomlattice::platform::simulated

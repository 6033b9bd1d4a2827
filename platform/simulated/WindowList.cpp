#include "platform/simulated/WindowList.h"

#include <algorithm>
#include <iterator>

namespace roomlattice::platform::simulated {

std::vector<SimulatedWindow*> WindowList::overlays() const {
  std::vector<Overlay> sorted = overlays_;
  std::ranges::stable_sort(sorted, {}, &Overlay::level);
  std::vector<SimulatedWindow*> windows;
  std::ranges::transform(sorted, std::back_inserter(windows), &Overlay::window);
  return windows;
}

SimulatedWindow* WindowList::find(WindowNumber number) const {
  const auto found = std::ranges::find(overlays_, number, &Overlay::number);
  return found == overlays_.end() ? nullptr : found->window;
}

Registration WindowList::add(SimulatedWindow& window, WindowNumber number, WindowLevel level) {
  overlays_.push_back({.window = &window, .number = number, .level = level});
  return Registration(
      [this, number] { std::erase_if(overlays_, [number](const Overlay& one) { return one.number == number; }); });
}

Registration WindowList::add(SimulatedTabbedWindow& window) {
  tabbed_.push_back(&window);
  return Registration([this, &window] { std::erase(tabbed_, &window); });
}

void WindowList::bringToFront(WindowNumber number) {
  const auto found = std::ranges::find(overlays_, number, &Overlay::number);
  std::rotate(found, found + 1, overlays_.end());
}

}  // namespace roomlattice::platform::simulated

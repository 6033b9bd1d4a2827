#include "platform/simulated/SimulatedDesktop.h"

#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedTabbedWindow.h"
#include "platform/simulated/SimulatedWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace roomlattice::platform::simulated {

SimulatedDesktop::SimulatedDesktop(int desktops)
    : dock_(time_, spaces_, faults, [this] { reportActiveSpaceChange(); }), events_(time_, dock_, faults), log_(time_) {
  addDisplay("Display 1", desktops);
  childProcesses_.install("/usr/bin/log",
                          {.run = [this](const auto& arguments) { return ProcessOutput{log_.show(arguments)}; }});
}

void SimulatedDesktop::wake() {
  if (time_.isAsleep()) {
    time_.setAsleep(false);
    announcements_.post(notification::didWake);
  }
}

void SimulatedDesktop::sleepFor(Duration duration) {
  sleep();
  advance(duration);
  wake();
}

SpaceID SimulatedDesktop::desktopAt(std::size_t index) const {
  const std::vector<Space> regular = spaces_.regular();
  return index < regular.size() ? regular[index].id : 0;
}

template <class Change>
void SimulatedDesktop::changeSpaces(Change change) {
  const std::uint64_t changes = spaces_.changes();
  const SpaceID active = spaces_.activeSpace();
  change();
  const bool activeChanged = spaces_.activeSpace() != active;
  if (activeChanged || (spaces_.changes() != changes && !faults.listChangesNotReported)) {
    reportActiveSpaceChange();
  }
}

void SimulatedDesktop::detachWindowsFrom(SpaceID space) {
  for (SimulatedWindow* window : windows_.overlays()) {
    window->detach(space);
  }
}

SpaceID SimulatedDesktop::insertSpace(const NewSpace& description) {
  const SpaceID id = nextSpace_++;
  const std::string uuid = description.uuid.empty() ? "UUID-" + std::to_string(id) : description.uuid;
  spaces_.insert(description.display, {.id = id, .uuid = uuid, .type = description.type}, description.position);
  return id;
}

SpaceID SimulatedDesktop::addDesktop(const NewSpace& description) {
  SpaceID id = 0;
  changeSpaces([&] { id = insertSpace(description); });
  return id;
}

void SimulatedDesktop::removeDesktop(SpaceID space) {
  changeSpaces([&] {
    spaces_.remove(space);
    detachWindowsFrom(space);
  });
}

void SimulatedDesktop::moveDesktop(SpaceID space, std::size_t position) {
  changeSpaces([&] { spaces_.move(space, position); });
}

SpaceID SimulatedDesktop::enterFullScreen() {
  const std::size_t display = spaces_.keyboardDisplay();
  if (display >= spaces_.displays().size()) {
    return 0;
  }
  SpaceID id = 0;
  changeSpaces([&] {
    const std::vector<Space>& spaces = spaces_.displays()[display].spaces;
    const auto active = std::ranges::find(spaces, spaces_.activeSpace(), &Space::id);
    const auto position = active == spaces.end() ? 0 : static_cast<std::size_t>(active - spaces.begin()) + 1;
    id = insertSpace({.type = spaceType::fullScreen, .display = display, .position = position});
    spaces_.activate(id);
  });
  return id;
}

void SimulatedDesktop::switchTo(SpaceID space) {
  changeSpaces([&] { spaces_.activate(space); });
}

std::size_t SimulatedDesktop::addDisplay(const std::string& identifier, int desktops) {
  std::size_t display = 0;
  changeSpaces([&] {
    display = spaces_.addDisplay(identifier);
    for (int desktop = 0; desktop < desktops; ++desktop) {
      insertSpace({.display = display});
    }
  });
  return display;
}

void SimulatedDesktop::removeDisplay(std::size_t display) {
  if (display >= spaces_.displays().size()) {
    return;
  }
  const std::vector<Space> removed = spaces_.displays()[display].spaces;
  changeSpaces([&] {
    spaces_.removeDisplay(display);
    for (const Space& space : removed) {
      detachWindowsFrom(space.id);
    }
  });
}

void SimulatedDesktop::giveKeyboardTo(std::size_t display) {
  changeSpaces([&] { spaces_.giveKeyboardTo(display); });
}

void SimulatedDesktop::reportActiveSpaceChange() {
  const int notices = 1 + faults.extraActiveSpaceNotices;
  for (int notice = 0; notice < notices; ++notice) {
    announcements_.post(notification::activeSpaceDidChange);
  }
}

void SimulatedDesktop::setScreens(const std::vector<Rect>& frames) {
  settings_.screens.clear();
  std::ranges::transform(frames, std::back_inserter(settings_.screens),
                         [](const Rect& frame) { return Screen{.frame = frame}; });
  settings_.mainScreen = 0;
  announcements_.post(notification::didChangeScreenParameters);
}

void SimulatedDesktop::setAppearance(std::optional<Appearance> appearance) {
  settings_.appearance = appearance;
  announcements_.post(notification::interfaceThemeChanged);
}

std::vector<SimulatedWindow*> SimulatedDesktop::windowsOn(SpaceID space) const {
  std::vector<SimulatedWindow*> windows = windows_.overlays();
  std::erase_if(windows, [space](const SimulatedWindow* window) { return !window->isOn(space); });
  return windows;
}

std::vector<SimulatedWindow*> SimulatedDesktop::visibleWindowsOn(SpaceID space) const {
  std::vector<SimulatedWindow*> windows = windowsOn(space);
  std::erase_if(windows, [](const SimulatedWindow* window) { return window->alpha() <= 0.0; });
  return windows;
}

SimulatedStatusItem* SimulatedDesktop::statusItem() const {
  return statusBar_.items().empty() ? nullptr : statusBar_.items().front();
}

SimulatedTabbedWindow* SimulatedDesktop::tabbedWindow() const {
  return windows_.tabbed().empty() ? nullptr : windows_.tabbed().front();
}

bool SimulatedDesktop::programTakesMouseAt(Point point) {
  const auto session = menu();
  const auto hasPoint = [point](const auto* shown) { return shown->frame().contains(point); };
  return (session != nullptr && session->frame().contains(point)) ||
         std::ranges::any_of(statusBar_.items(), hasPoint) ||
         std::ranges::any_of(windows_.tabbed(), [&](const SimulatedTabbedWindow* window) {
           return window->isVisible() && hasPoint(window);
         });
}

bool SimulatedDesktop::programHasKeyboard() {
  return menu() != nullptr || std::ranges::any_of(windows_.tabbed(), &SimulatedTabbedWindow::isVisible);
}

Value SimulatedDesktop::managedDisplaySpaces() const {
  return displaysOverride_.value_or(spaces_.managedDisplaySpaces());
}

}  // namespace roomlattice::platform::simulated

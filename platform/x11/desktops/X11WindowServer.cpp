#include "platform/x11/desktops/X11WindowServer.h"

#include <cstddef>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

Value dictionaryOf(const Desktop& desktop) {
  Value::Dictionary space;
  space.emplace("ManagedSpaceID", static_cast<std::int64_t>(desktop.id));
  space.emplace("type", std::int64_t{0});
  space.emplace("uuid", desktop.uuid);
  return space;
}

}  // namespace

Value X11WindowServer::managedDisplaySpaces() {
  const DesktopList& list = desktops_.list();
  if (list.desktops.empty()) {
    return {};
  }
  // All of it is moved: a list in braces would be copied.
  Value::Array spaces;
  spaces.reserve(list.desktops.size());
  dictionaries_.resize(list.desktops.size());
  for (std::size_t index = 0; index < list.desktops.size(); ++index) {
    const Desktop& desktop = list.desktops[index];
    auto& [of, dictionary] = dictionaries_[index];
    if (of != desktop) {
      of = desktop;
      dictionary = dictionaryOf(desktop);
    }
    spaces.push_back(dictionary);
  }
  Value::Dictionary display;
  display.emplace("Display Identifier", "screen-" + std::to_string(screenNumber_));
  display.emplace("Spaces", std::move(spaces));
  Value::Array displays;
  displays.emplace_back(std::move(display));
  return displays;
}

SpaceID X11WindowServer::activeSpace() {
  const DesktopList& list = desktops_.list();
  return list.current ? list.desktops[*list.current].id : 0;
}

void X11WindowServer::addWindowToSpace(WindowNumber window, SpaceID space) {
  if (desktops_.indexOf(space)) {
    attachments_.set(window, space);
  }
}

void X11WindowServer::removeWindowFromSpace(WindowNumber window, SpaceID space) {
  if (attachments_.desktopOf(window) == space) {
    attachments_.forget(window);
  }
}

}  // namespace roomlattice::platform::x11

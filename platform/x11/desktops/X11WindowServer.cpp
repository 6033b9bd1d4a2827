#include "platform/x11/desktops/X11WindowServer.h"

#include "platform/ManagedSpaces.h"

#include <cstddef>
#include <utility>

namespace roomlattice::platform::x11 {
Value X11WindowServer::managedDisplaySpaces() {
  const DesktopList& list = desktops_.list();
  if (list.desktops.empty()) {
    return {};
  }
  Value::Array spaces;
  spaces.reserve(list.desktops.size());
  dictionaries_.resize(list.desktops.size());
  for (std::size_t index = 0; index < list.desktops.size(); ++index) {
    const Desktop& desktop = list.desktops[index];
    auto& [of, dictionary] = dictionaries_[index];
    if (of != desktop) {
      of = desktop;
      dictionary = spaceDictionary(desktop.id, desktop.uuid, 0);
    }
    spaces.push_back(dictionary);
  }
  return Value::Array{displayDictionary("screen-" + std::to_string(screenNumber_), std::move(spaces))};
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

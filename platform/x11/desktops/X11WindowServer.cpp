#include "platform/x11/desktops/X11WindowServer.h"

#include "platform/ManagedSpaces.h"
#include "support/Difference.h"

#include <cstddef>
#include <utility>

namespace roomlattice::platform::x11 {

Value X11WindowServer::managedDisplaySpaces() {
  const DesktopList& list = desktops_.list();
  if (list.desktops.empty()) {
    return {};
  }
  bringUpToDate(list.desktops);
  Value::Array spaces;
  spaces.reserve(dictionaries_.size());
  for (const auto& [desktop, dictionary] : dictionaries_) {
    spaces.push_back(dictionary);
  }
  return Value::Array{displayDictionary("screen-" + std::to_string(screenNumber_), std::move(spaces))};
}

void X11WindowServer::bringUpToDate(const std::vector<Desktop>& desktops) {
  const Difference difference = differenceOf(
      dictionaries_.size(), desktops.size(),
      [&](std::size_t before, std::size_t after) { return dictionaries_[before].first == desktops[after]; });
  const auto first = dictionaries_.begin() + static_cast<std::ptrdiff_t>(difference.first);
  const auto gap = dictionaries_.erase(first, first + static_cast<std::ptrdiff_t>(difference.before));
  dictionaries_.insert(gap, difference.after, {});
  for (std::size_t index = difference.first; index < difference.first + difference.after; ++index) {
    const Desktop& desktop = desktops[index];
    dictionaries_[index] = {desktop, spaceDictionary(desktop.id, desktop.uuid, 0)};
  }
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

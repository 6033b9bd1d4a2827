#include "platform/x11/desktops/X11WindowServer.h"

namespace roomlattice::platform::x11 {

Value X11WindowServer::managedDisplaySpaces() {
  const DesktopList& list = desktops_.list();
  if (list.desktops.empty()) {
    return {};
  }
  Value::Array spaces;
  for (const Desktop& desktop : list.desktops) {
    spaces.emplace_back(Value::Dictionary{
        {"ManagedSpaceID", static_cast<std::int64_t>(desktop.id)}, {"uuid", desktop.uuid}, {"type", std::int64_t{0}}});
  }
  return Value::Array{Value::Dictionary{{"Display Identifier", "screen-" + std::to_string(screenNumber_)},
                                        {"Spaces", std::move(spaces)}}};
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

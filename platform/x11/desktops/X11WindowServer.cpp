#include "platform/x11/desktops/X11WindowServer.h"

#include "platform/x11/connection/Properties.h"

#include <limits>

namespace roomlattice::platform::x11 {
namespace {

bool isWindow(WindowNumber number) {
  return number > 0 && number <= std::numeric_limits<xcb_window_t>::max();
}

/// ICCCM: a window manager keeps WM_STATE on the windows it manages.
bool isManaged(X11Connection& connection, xcb_window_t window) {
  const xcb_atom_t state = connection.atom("WM_STATE");
  return readNumber(connection, window, state, state).value_or(0) != 0;
}

}  // namespace

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
  return Value::Array{Value::Dictionary{{"Display Identifier", "screen-" + std::to_string(connection_.screenNumber())},
                                        {"Spaces", std::move(spaces)}}};
}

SpaceID X11WindowServer::activeSpace() {
  const DesktopList& list = desktops_.list();
  return list.current ? list.desktops[*list.current].id : 0;
}

void X11WindowServer::addWindowToSpace(WindowNumber window, SpaceID space) {
  const std::optional<std::size_t> index = desktops_.indexOf(space);
  if (!index || !isWindow(window)) {
    return;
  }
  attachments_.set(window, space);
  const auto xWindow = static_cast<xcb_window_t>(window);
  const auto desktop = static_cast<std::uint32_t>(*index);
  const xcb_atom_t atom = connection_.ewmh()->_NET_WM_DESKTOP;
  if (!isManaged(connection_, xWindow)) {
    // The window manager reads it when it starts to manage the window; and should it do so right now, the message
    // finds the window managed.
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, xWindow, atom, XCB_ATOM_CARDINAL, 32, 1, &desktop);
  }
  connection_.sendToRoot(xWindow, atom, {desktop, sourceIsPager, 0, 0, 0});
}

void X11WindowServer::removeWindowFromSpace(WindowNumber window, SpaceID space) {
  if (attachments_.desktopOf(window) == space) {
    attachments_.forget(window);
  }
}

}  // namespace roomlattice::platform::x11

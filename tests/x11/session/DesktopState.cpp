#include "tests/x11/session/DesktopState.h"

#include "platform/x11/connection/Properties.h"
#include "tests/x11/session/WindowProbe.h"

#include <cstring>

namespace roomlattice::tests {
namespace {

using platform::x11::replyTo;
using platform::x11::X11Connection;

constexpr const char* picture = "_XROOTPMAP_ID";
constexpr const char* formerPicture = "ESETROOT_PMAP_ID";

/// Its bytes, whatever they mean; none when there is no such property.
std::string bytesOf(X11Connection& connection, const char* property) {
  constexpr std::uint32_t enough = 4096;
  const auto cookie = xcb_get_property(connection.raw(), 0, connection.root(), connection.atom(property),
                                       XCB_GET_PROPERTY_TYPE_ANY, 0, enough);
  const auto reply = replyTo(connection.raw(), cookie, xcb_get_property_reply);
  return reply == nullptr ? std::string()
                          : std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

std::set<xcb_window_t> shownWindows(X11Connection& connection) {
  const auto tree =
      replyTo(connection.raw(), xcb_query_tree(connection.raw(), connection.root()), xcb_query_tree_reply);
  std::set<xcb_window_t> shown;
  for (int index = 0; tree != nullptr && index < xcb_query_tree_children_length(tree.get()); ++index) {
    const WindowProbe window(connection, xcb_query_tree_children(tree.get())[index]);
    if (window.isViewable()) {
      shown.insert(window.id());
    }
  }
  return shown;
}

QSize screenSize(X11Connection& connection) {
  const auto cookie = xcb_get_geometry(connection.raw(), connection.root());
  const auto geometry = replyTo(connection.raw(), cookie, xcb_get_geometry_reply);
  return geometry == nullptr ? QSize() : QSize(geometry->width, geometry->height);
}

/// Those who set a picture let it stay in the server when they go.
void removePicture(X11Connection& connection) {
  const std::uint32_t black = 0;
  xcb_change_window_attributes(connection.raw(), connection.root(), XCB_CW_BACK_PIXEL, &black);
  xcb_clear_area(connection.raw(), 0, connection.root(), 0, 0, 0, 0);
  for (const char* property : {picture, formerPicture}) {
    xcb_delete_property(connection.raw(), connection.root(), connection.atom(property));
  }
  xcb_kill_client(connection.raw(), XCB_KILL_ALL_TEMPORARY);
}

/// All of the screen where the window manager has not said anything yet.
QRect workAreaOf(X11Connection& connection, const QSize& screen) {
  const auto area =
      platform::x11::readNumbers(connection, connection.root(), connection.ewmh()->_NET_WORKAREA, XCB_ATOM_CARDINAL);
  if (!area || area->size() < 4) {
    return {{0, 0}, screen};
  }
  const auto number = [&](std::size_t index) { return static_cast<int>(area->at(index)); };
  return {number(0), number(1), number(2), number(3)};
}

}  // namespace

DesktopState DesktopState::of(X11Connection& connection) {
  DesktopState state;
  for (const char* property :
       {"_NET_CURRENT_DESKTOP", "_NET_NUMBER_OF_DESKTOPS", "_NET_DESKTOP_NAMES", "_NET_DESKTOP_LAYOUT",
        "_NET_SUPPORTING_WM_CHECK", "_XKB_RULES_NAMES", "RESOURCE_MANAGER", picture, formerPicture}) {
    state.properties[property] = bytesOf(connection, property);
  }
  state.screen = screenSize(connection);
  state.workArea = workAreaOf(connection, state.screen);
  if (const auto pointer = connection.queryPointer()) {
    state.pointer = {pointer->root_x, pointer->root_y};
  }
  state.shown = shownWindows(connection);
  return state;
}

void DesktopState::putBackOn(X11Connection& connection) const {
  const DesktopState now = of(connection);
  const auto differs = [&](const char* property) { return now.properties.at(property) != properties.at(property); };
  for (const char* number : {"_NET_NUMBER_OF_DESKTOPS", "_NET_CURRENT_DESKTOP"}) {
    if (differs(number) && properties.at(number).size() == sizeof(std::uint32_t)) {
      std::uint32_t value = 0;
      std::memcpy(&value, properties.at(number).data(), sizeof value);
      connection.sendToRoot(connection.root(), connection.atom(number), {value, XCB_CURRENT_TIME, 0, 0, 0});
    }
  }
  if (differs(picture) || differs(formerPicture)) {
    removePicture(connection);
  }
  xcb_warp_pointer(connection.raw(), XCB_WINDOW_NONE, connection.root(), 0, 0, 0, 0,
                   static_cast<std::int16_t>(pointer.x()), static_cast<std::int16_t>(pointer.y()));
  connection.flush();
}

}  // namespace roomlattice::tests

#include "tests/x11/session/WindowProbe.h"

#include "platform/x11/connection/Properties.h"

#include <algorithm>
#include <xcb/shape.h>

namespace roomlattice::tests {

using platform::x11::X11Connection;
using platform::x11::XcbPointer;

std::optional<QRect> WindowProbe::geometry() const {
  xcb_connection_t* raw = connection_->raw();
  const auto sizeCookie = xcb_get_geometry(raw, window_);
  const auto placeCookie = xcb_translate_coordinates(raw, window_, connection_->root(), 0, 0);
  const XcbPointer<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(raw, sizeCookie, nullptr));
  const XcbPointer<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(raw, placeCookie, nullptr));
  if (size == nullptr || place == nullptr) {
    return std::nullopt;
  }
  return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

bool WindowProbe::isViewable() const {
  const XcbPointer<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
      connection_->raw(), xcb_get_window_attributes(connection_->raw(), window_), nullptr));
  return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool WindowProbe::isCutToNothing() const {
  const XcbPointer<xcb_shape_get_rectangles_reply_t> shape(xcb_shape_get_rectangles_reply(
      connection_->raw(), xcb_shape_get_rectangles(connection_->raw(), window_, XCB_SHAPE_SK_BOUNDING), nullptr));
  return shape != nullptr && shape->rectangles_len == 0;
}

bool WindowProbe::isOverrideRedirect() const {
  const XcbPointer<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
      connection_->raw(), xcb_get_window_attributes(connection_->raw(), window_), nullptr));
  return attributes != nullptr && attributes->override_redirect != 0;
}

std::vector<std::string> WindowProbe::types() const {
  return atomNames("_NET_WM_WINDOW_TYPE");
}

bool WindowProbe::hasState(const std::string& name) const {
  const std::vector<std::string> states = atomNames("_NET_WM_STATE");
  return std::find(states.begin(), states.end(), "_NET_WM_STATE_" + name) != states.end();
}

std::optional<std::uint32_t> WindowProbe::number(const std::string& property) const {
  return platform::x11::readNumber(*connection_, window_, connection_->atom(property), XCB_ATOM_CARDINAL);
}

bool WindowProbe::passesClicks() const {
  xcb_connection_t* raw = connection_->raw();
  for (xcb_window_t window = window_; window != connection_->root();) {
    const XcbPointer<xcb_shape_get_rectangles_reply_t> shape(
        xcb_shape_get_rectangles_reply(raw, xcb_shape_get_rectangles(raw, window, XCB_SHAPE_SK_INPUT), nullptr));
    const XcbPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(raw, xcb_query_tree(raw, window), nullptr));
    if (shape == nullptr || tree == nullptr || shape->rectangles_len != 0) {
      return false;
    }
    window = tree->parent;
  }
  return true;
}

std::vector<std::string> WindowProbe::atomNames(const std::string& property) const {
  std::vector<std::string> names;
  const auto atoms = platform::x11::readNumbers(*connection_, window_, connection_->atom(property), XCB_ATOM_ATOM);
  for (const xcb_atom_t atom : atoms.value_or(std::vector<std::uint32_t>{})) {
    const XcbPointer<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection_->raw(), xcb_get_atom_name(connection_->raw(), atom), nullptr));
    if (reply != nullptr) {
      names.emplace_back(xcb_get_atom_name_name(reply.get()),
                         static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
    }
  }
  return names;
}

xcb_window_t focusedWindow(X11Connection& connection) {
  const XcbPointer<xcb_get_input_focus_reply_t> focus(
      xcb_get_input_focus_reply(connection.raw(), xcb_get_input_focus(connection.raw()), nullptr));
  return focus == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : focus->focus;
}

}  // namespace roomlattice::tests

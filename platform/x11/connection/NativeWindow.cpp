#include "platform/x11/connection/NativeWindow.h"

#include "platform/x11/connection/Properties.h"
#include "support/Fatal.h"

#include <QGuiApplication>
#include <QWidget>
#include <QtGui/qguiapplication_platform.h>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <xcb/shape.h>

namespace roomlattice::platform::x11 {
namespace {

// EWMH: an action of a _NET_WM_STATE message.
constexpr std::uint32_t removeState = 0;

// ICCCM: which of the values of WM_HINTS are given, and what they are.
constexpr std::uint32_t inputHint = 1U << 0U;
constexpr std::uint32_t stateHint = 1U << 1U;
constexpr std::uint32_t windowGroupHint = 1U << 6U;
constexpr std::uint32_t noInput = 0;
constexpr std::uint32_t normalState = 1;

}  // namespace

xcb_connection_t* toolkitConnection() {
  auto* application = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (application == nullptr) {
    fatal("the toolkit does not run on X11");
  }
  return application->connection();
}

NativeWindow::NativeWindow(X11Connection& connection, QWidget& widget)
    : connection_(connection), raw_(toolkitConnection()), id_(static_cast<xcb_window_t>(widget.winId())) {
  // Panels and window managers find the program's name and icon by the name of its desktop entry.
  constexpr std::string_view entry = "roomlattice";
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, connection_.atom("_KDE_NET_WM_DESKTOP_FILE"),
                      connection_.ewmh()->UTF8_STRING, 8, entry.size(), entry.data());
}

void NativeWindow::deafenToolkit() {
  constexpr std::uint32_t events = XCB_EVENT_MASK_NO_EVENT;
  xcb_change_window_attributes(raw_, id_, XCB_CW_EVENT_MASK, &events);
}

void NativeWindow::tellPlace(const xcb_configure_notify_event_t& change) {
  // What the server says of the place is relative to the frame.
  const auto cookie = xcb_translate_coordinates(connection_.raw(), id_, connection_.root(), 0, 0);
  const auto place = replyTo(connection_.raw(), cookie, xcb_translate_coordinates_reply);
  if (place == nullptr) {
    return;
  }
  xcb_configure_notify_event_t now = change;
  now.event = id_;
  now.x = place->dst_x;
  now.y = place->dst_y;
  // A message is as long as the longest event.
  xcb_raw_generic_event_t message{};
  static_assert(sizeof(now) <= sizeof(message));
  std::memcpy(&message, &now, sizeof(now));
  // Without a mask it goes to whoever made the window.
  xcb_send_event(raw_, 0, id_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
  flush();
}

void NativeWindow::setTypes(const std::vector<xcb_atom_t>& types) {
  writeAtoms(connection_.ewmh()->_NET_WM_WINDOW_TYPE, types);
}

void NativeWindow::writeHints(const WindowHints& hints) {
  writeAtoms(connection_.ewmh()->_NET_WM_WINDOW_TYPE, hints.types);
  writeAtoms(connection_.ewmh()->_NET_WM_STATE, hints.states);
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, connection_.ewmh()->_NET_WM_DESKTOP, XCB_ATOM_CARDINAL, 32, 1,
                      &hints.desktop);
}

void NativeWindow::refuseKeyboard() {
  const std::array<std::uint32_t, 9> hints = {
      inputHint | stateHint | windowGroupHint, noInput, normalState, 0, 0, 0, 0, 0, id_};
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, hints.size(),
                      hints.data());
  // The toolkit also announces WM_TAKE_FOCUS, whatever the window wants. Without input that is ICCCM's globally active
  // model: such a window is offered the keyboard, and nobody has it when the window does not take it.
  writeAtoms(connection_.ewmh()->WM_PROTOCOLS,
             {connection_.atom("WM_DELETE_WINDOW"), connection_.ewmh()->_NET_WM_PING});
}

void NativeWindow::requestDesktop(std::uint32_t desktop) {
  send(connection_.ewmh()->_NET_WM_DESKTOP, {desktop, sourceIsApplication, 0, 0, 0});
}

void NativeWindow::requestActivation() {
  send(connection_.ewmh()->_NET_ACTIVE_WINDOW, {sourceIsPager, XCB_CURRENT_TIME, 0, 0, 0});
}

void NativeWindow::requestNoState(xcb_atom_t state) {
  send(connection_.ewmh()->_NET_WM_STATE, {removeState, state, 0, sourceIsApplication, 0});
}

bool NativeWindow::hasState(xcb_atom_t state) const {
  const auto states = readNumbers(connection_, id_, connection_.ewmh()->_NET_WM_STATE, XCB_ATOM_ATOM);
  return states && std::find(states->begin(), states->end(), state) != states->end();
}

std::optional<std::uint32_t> NativeWindow::desktop() const {
  return readNumber(connection_, id_, connection_.ewmh()->_NET_WM_DESKTOP, XCB_ATOM_CARDINAL);
}

bool NativeWindow::isManaged() const {
  const xcb_atom_t state = connection_.atom("WM_STATE");
  return readNumber(connection_, id_, state, state).has_value();
}

void NativeWindow::map() {
  xcb_map_window(raw_, id_);
  flush();
}

void NativeWindow::setOpacity(xcb_window_t frame, double opacity) {
  const double scaled = std::round(std::clamp(opacity, 0.0, 1.0) * std::numeric_limits<std::uint32_t>::max());
  const auto value = static_cast<std::uint32_t>(scaled);
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, frame, connection_.atom("_NET_WM_WINDOW_OPACITY"), XCB_ATOM_CARDINAL,
                      32, 1, &value);
}

void NativeWindow::setBoundingShape(const std::vector<xcb_rectangle_t>& rectangles) {
  xcb_shape_rectangles(raw_, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_BANDED, id_, 0, 0,
                       static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

void NativeWindow::clearBoundingShape() {
  xcb_shape_mask(raw_, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, id_, 0, 0, XCB_PIXMAP_NONE);
}

void NativeWindow::passClicksThrough() {
  xcb_window_t window = id_;
  while (window != connection_.root()) {
    xcb_shape_rectangles(raw_, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0, 0,
                         nullptr);
    const auto tree = replyTo(raw_, xcb_query_tree(raw_, window), xcb_query_tree_reply);
    window = tree == nullptr ? connection_.root() : tree->parent;
  }
  flush();
}

void NativeWindow::setStrut(const std::optional<Strut>& strut) {
  if (!strut) {
    xcb_delete_property(raw_, id_, connection_.ewmh()->_NET_WM_STRUT_PARTIAL);
    xcb_delete_property(raw_, id_, connection_.ewmh()->_NET_WM_STRUT);
    return;
  }
  // EWMH: the depths at the left, the right, the top and the bottom, then from where to where each.
  std::array<std::uint32_t, 12> partial{};
  const std::size_t side = strut->edge == Strut::Edge::Top ? 2 : 3;
  partial.at(side) = strut->depth;
  partial.at(4 + 2 * side) = strut->startX;
  partial.at(5 + 2 * side) = strut->endX;
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, connection_.ewmh()->_NET_WM_STRUT_PARTIAL, XCB_ATOM_CARDINAL,
                      32, partial.size(), partial.data());
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, connection_.ewmh()->_NET_WM_STRUT, XCB_ATOM_CARDINAL, 32, 4,
                      partial.data());
}

void NativeWindow::flush() {
  xcb_flush(raw_);
}

void NativeWindow::writeAtoms(xcb_atom_t property, const std::vector<xcb_atom_t>& atoms) {
  xcb_change_property(raw_, XCB_PROP_MODE_REPLACE, id_, property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

void NativeWindow::send(xcb_atom_t type, const std::array<std::uint32_t, 5>& data) {
  // In order with the toolkit's requests, so not through the program's own connection.
  sendToRoot(raw_, connection_.root(), id_, type, data);
  flush();
}

}  // namespace roomlattice::platform::x11

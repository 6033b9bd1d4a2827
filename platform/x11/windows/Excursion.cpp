#include "platform/x11/windows/Excursion.h"

#include "platform/x11/connection/Properties.h"

#include <QCursor>
#include <chrono>

namespace roomlattice::platform::x11 {
namespace {

/// While a menu or another program holds the keyboard.
constexpr std::chrono::milliseconds retryDelay(30);

std::optional<SpaceID> desktopInFront(const X11Desktops& desktops) {
  const DesktopList& list = desktops.list();
  return list.current ? std::optional(list.desktops[*list.current].id) : std::nullopt;
}

xcb_window_t activeWindow(X11Connection& connection) {
  const xcb_atom_t atom = connection.ewmh()->_NET_ACTIVE_WINDOW;
  return readNumber(connection, connection.root(), atom, XCB_ATOM_WINDOW).value_or(XCB_WINDOW_NONE);
}

xcb_window_t focusOf(X11Connection& connection) {
  const auto cookie = xcb_get_input_focus(connection.raw());
  const auto reply = replyTo(connection.raw(), cookie, xcb_get_input_focus_reply);
  return reply == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : reply->focus;
}

}  // namespace

Excursion::Excursion(X11Connection& connection, X11Desktops& desktops)
    : connection_(connection),
      desktops_(desktops),
      home_(desktopInFront(desktops)),
      activeWindow_(activeWindow(connection)),
      focus_(focusOf(connection)),
      keyboard_(connection, QCursor::pos(), [] {}) {
  holdKeyboard();
}

Excursion::~Excursion() {
  xcb_ungrab_keyboard(connection_.raw(), XCB_CURRENT_TIME);
  returnHome();
  giveFocusBack();
  // The program may be about to end, and a busy server drops what it has not read of a client that is gone.
  connection_.waitForServer();
}

void Excursion::holdKeyboard() {
  constexpr std::uint8_t toThisProgramOnly = 0;
  const auto cookie = xcb_grab_keyboard(connection_.raw(), toThisProgramOnly, connection_.root(), XCB_CURRENT_TIME,
                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const auto reply = replyTo(connection_.raw(), cookie, xcb_grab_keyboard_reply);
  if (reply != nullptr && reply->status != XCB_GRAB_STATUS_SUCCESS) {
    retry_.start(retryDelay);
  }
}

void Excursion::returnHome() {
  const std::optional<std::size_t> place = home_ ? desktops_.indexOf(*home_) : std::nullopt;
  if (place && desktops_.destination() != place) {
    returning_ = true;
    desktops_.activate(*place);
  }
}

void Excursion::giveFocusBack() {
  // A window manager that has given it back itself is not asked to raise the window as well.
  if (activeWindow_ != XCB_WINDOW_NONE && (returning_ || focusOf(connection_) != focus_)) {
    connection_.sendToRoot(activeWindow_, connection_.ewmh()->_NET_ACTIVE_WINDOW,
                           {sourceIsPager, XCB_CURRENT_TIME, 0, 0, 0});
  }
}

}  // namespace roomlattice::platform::x11

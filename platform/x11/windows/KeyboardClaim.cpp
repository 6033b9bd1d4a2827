#include "platform/x11/windows/KeyboardClaim.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/connection/Xwayland.h"

#include <utility>

namespace roomlattice::platform::x11 {

KeyboardClaim::KeyboardClaim(X11Connection& connection, QPoint place, std::function<void()> lost)
    : connection_(connection), lost_(std::move(lost)) {
  if (!isXwayland(connection_)) {
    return;
  }
  connection_.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
  // Not by what the toolkit says of the window: for it a grab of the keyboard takes it from the window.
  changes_ = connection_.observe<xcb_property_notify_event_t>([this](const xcb_property_notify_event_t& event) {
    if (event.window == connection_.root() && event.atom == connection_.ewmh()->_NET_ACTIVE_WINDOW) {
      activeWindowChanged();
    }
  });
  showWindow(place);
}

void KeyboardClaim::showWindow(QPoint place) {
  window_.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  window_.setAttribute(Qt::WA_TranslucentBackground);
  window_.setWindowTitle(QStringLiteral("Roomlattice"));
  window_.setGeometry(place.x(), place.y(), 1, 1);
  native_.emplace(connection_, window_);
  const xcb_ewmh_connection_t& atoms = *connection_.ewmh();
  native_->writeHints(
      {.types = {atoms._NET_WM_WINDOW_TYPE_UTILITY},
       .states = {atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER, atoms._NET_WM_STATE_STICKY},
       .desktop = allDesktops});
  window_.show();
  native_->requestActivation();
}

void KeyboardClaim::activeWindowChanged() {
  const xcb_atom_t property = connection_.ewmh()->_NET_ACTIVE_WINDOW;
  const bool isActive = readNumber(connection_, connection_.root(), property, XCB_ATOM_WINDOW) == native_->id();
  if (std::exchange(held_, isActive) && !isActive) {
    lost_();
  }
}

}  // namespace roomlattice::platform::x11

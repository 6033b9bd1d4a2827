#include "platform/x11/connection/WindowManagerWatch.h"

#include "platform/x11/connection/Properties.h"

#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// EWMH: the root window names a window that bears the same property, so that one left over is told from one in use.
std::optional<xcb_window_t> findCheckWindow(X11Connection& connection) {
  const xcb_atom_t atom = connection.ewmh()->_NET_SUPPORTING_WM_CHECK;
  const auto window = readNumber(connection, connection.root(), atom, XCB_ATOM_WINDOW);
  if (!window || readNumber(connection, *window, atom, XCB_ATOM_WINDOW) != window) {
    return std::nullopt;
  }
  return window;
}

}  // namespace

std::optional<WindowManager> findWindowManager(X11Connection& connection) {
  const auto window = findCheckWindow(connection);
  if (!window) {
    return std::nullopt;
  }
  return WindowManager{*window, readText(connection, *window, connection.ewmh()->_NET_WM_NAME).value_or("")};
}

WindowManagerWatch::WindowManagerWatch(X11Connection& connection) : connection_(connection) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
    const bool isPointer = notify.atom == ewmh._NET_SUPPORTING_WM_CHECK;
    const bool onRoot = notify.window == connection_.root() && isPointer;
    // Some window managers write others there with each switch.
    const bool onCheckWindow =
        current_ && notify.window == current_->checkWindow && (isPointer || notify.atom == ewmh._NET_WM_NAME);
    dirty_ = dirty_ || onRoot || onCheckWindow;
  });
  destroyEvents_ =
      connection.observe<xcb_destroy_notify_event_t>([this](const auto& event) { checkWindowDestroyed(event.window); });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
  take(findWindowManager(connection_));
  follow();
}

Registration WindowManagerWatch::observe(std::function<void()> handler) {
  return listeners_.add(std::move(handler));
}

void WindowManagerWatch::batchEnded() {
  if (std::exchange(dirty_, false)) {
    update();
  }
}

void WindowManagerWatch::update() {
  std::optional<WindowManager> found = findWindowManager(connection_);
  if (found == current_) {
    return;
  }
  const bool sameWindow = found && current_ && found->checkWindow == current_->checkWindow;
  take(std::move(found));
  if (!sameWindow) {
    follow();
  }
  listeners_.notify();
}

void WindowManagerWatch::checkWindowDestroyed(xcb_window_t window) {
  if (!current_ || window != current_->checkWindow) {
    return;
  }
  // The next one may be up already, even with a window of the same number: it counts as another one.
  take(findWindowManager(connection_));
  follow();
  listeners_.notify();
}

void WindowManagerWatch::take(std::optional<WindowManager> found) {
  current_ = std::move(found);
  traits_ = current_ ? traitsOf(current_->name) : WindowManagerTraits();
}

void WindowManagerWatch::follow() {
  if (!current_) {
    return;
  }
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection_.raw(), current_->checkWindow, XCB_CW_EVENT_MASK, &events);
  // It may have gone between being found and being followed.
  if (findCheckWindow(connection_) != current_->checkWindow) {
    take(std::nullopt);
  }
}

}  // namespace roomlattice::platform::x11

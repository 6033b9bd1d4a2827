#include "platform/x11/connection/WindowManagerWatch.h"

#include "platform/x11/connection/Properties.h"

#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// The window that the root names as the check window (EWMH), whether or not it is one; NONE where it names none.
xcb_window_t namedWindow(X11Connection& connection) {
  const xcb_atom_t atom = connection.ewmh()->_NET_SUPPORTING_WM_CHECK;
  return readNumber(connection, connection.root(), atom, XCB_ATOM_WINDOW).value_or(XCB_WINDOW_NONE);
}

/// EWMH: the check window bears the same property, so that one left over is told from one in use.
std::optional<WindowManager> windowManagerOf(X11Connection& connection, xcb_window_t named) {
  const xcb_atom_t atom = connection.ewmh()->_NET_SUPPORTING_WM_CHECK;
  if (named == XCB_WINDOW_NONE || readNumber(connection, named, atom, XCB_ATOM_WINDOW) != named) {
    return std::nullopt;
  }
  return WindowManager{named, readText(connection, named, connection.ewmh()->_NET_WM_NAME).value_or("")};
}

}  // namespace

std::optional<WindowManager> findWindowManager(X11Connection& connection) {
  return windowManagerOf(connection, namedWindow(connection));
}

WindowManagerWatch::WindowManagerWatch(X11Connection& connection) : connection_(connection) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
    const bool isPointer = notify.atom == ewmh._NET_SUPPORTING_WM_CHECK;
    const bool onRoot = notify.window == connection_.root() && isPointer;
    // Some window managers write others there with each switch.
    const bool onCheckWindow = notify.window == named_ && (isPointer || notify.atom == ewmh._NET_WM_NAME);
    dirty_ = dirty_ || onRoot || onCheckWindow;
  });
  destroyEvents_ =
      connection.observe<xcb_destroy_notify_event_t>([this](const auto& event) { checkWindowDestroyed(event.window); });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
  take(look());
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
  if (std::optional<WindowManager> found = look(); found != current_) {
    take(std::move(found));
    listeners_.notify();
  }
}

void WindowManagerWatch::checkWindowDestroyed(xcb_window_t window) {
  if (window != named_) {
    return;
  }
  // The next one may be up already, even with a window of the same number: it counts as another one.
  const bool isOver = current_.has_value();
  take(look());
  if (isOver || current_) {
    listeners_.notify();
  }
}

/// Follows the window that the root names before it reads there: it may bear the property only later, or go meanwhile.
std::optional<WindowManager> WindowManagerWatch::look() {
  named_ = namedWindow(connection_);
  if (named_ != XCB_WINDOW_NONE && named_ != connection_.root()) {
    constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_.raw(), named_, XCB_CW_EVENT_MASK, &events);
  }
  return windowManagerOf(connection_, named_);
}

void WindowManagerWatch::take(std::optional<WindowManager> found) {
  current_ = std::move(found);
  traits_ = current_ ? traitsOf(current_->name) : WindowManagerTraits();
}

}  // namespace roomlattice::platform::x11

#include "platform/x11/windows/OverlayManagement.h"

#include "platform/x11/connection/Properties.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

/// Much longer than a window manager needs to take a window in, unless it is very busy.
constexpr std::chrono::milliseconds lookDelay(300);

bool isMapped(X11Connection& connection, xcb_window_t window) {
  const auto cookie = xcb_get_window_attributes(connection.raw(), window);
  const auto attributes = replyTo(connection.raw(), cookie, xcb_get_window_attributes_reply);
  return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

}  // namespace

OverlayManagement::OverlayManagement(X11Connection& connection, WindowManagerWatch& windowManager)
    : connection_(connection), windowManager_(windowManager) {
  windowManagerChanges_ = windowManager.observe([this] {
    seenUnmanaged_ = false;
    listeners_.notify();
  });
}

bool OverlayManagement::mayWaitOnDesktops() const {
  return !seenUnmanaged_ && windowManager_.traits().letsOverlaysWait;
}

void OverlayManagement::check(xcb_window_t window) {
  if (windowManager_.traits().letsOverlaysWait && !lookSoon_.isRunning()) {
    checked_ = window;
    lookSoon_.start(lookDelay);
  }
}

Registration OverlayManagement::observe(std::function<void()> handler) {
  return listeners_.add(std::move(handler));
}

void OverlayManagement::look() {
  // A window that is not to be seen may just be about to come or to go.
  if (!isMapped(connection_, checked_)) {
    return;
  }
  // Before the first window it manages, a window manager may have told of none.
  const auto managed =
      readNumbers(connection_, connection_.root(), connection_.ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW)
          .value_or(std::vector<std::uint32_t>());
  const bool isUnmanaged = std::ranges::find(managed, checked_) == managed.end();
  if (std::exchange(seenUnmanaged_, isUnmanaged) != isUnmanaged) {
    listeners_.notify();
  }
}

}  // namespace roomlattice::platform::x11

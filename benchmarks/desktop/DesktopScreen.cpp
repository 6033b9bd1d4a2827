#include "benchmarks/desktop/DesktopScreen.h"

#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/Properties.h"
#include "support/Fatal.h"

#include <algorithm>
#include <poll.h>
#include <xcb/res.h>

namespace roomlattice::benchmarks {

using platform::x11::allDesktops;
using platform::x11::readNumber;
using platform::x11::readNumbers;
using platform::x11::replyTo;
using platform::x11::X11Connection;

namespace {

constexpr std::chrono::milliseconds lookAgain(5);

}  // namespace

DesktopScreen::DesktopScreen() : connection_(X11Connection::open()) {
  if (connection_ == nullptr) {
    fatal("no X server answers");
  }
  connection_->selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void DesktopScreen::switchTo(std::uint32_t desktop) {
  connection_->sendToRoot(connection_->root(), connection_->ewmh()->_NET_CURRENT_DESKTOP,
                          {desktop, XCB_CURRENT_TIME, 0, 0, 0});
}

bool DesktopScreen::waitUntil(std::chrono::milliseconds limit, const std::function<bool()>& done) {
  const auto end = Clock::now() + limit;
  while (true) {
    connection_->deliverEvents();
    if (done()) {
      return true;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left.count() <= 0) {
      return false;
    }
    connection_->flush();
    // What an answer to `done` has brought along waits in the library, where poll does not see it.
    const auto longest = std::min<std::chrono::milliseconds>(left, lookAgain);
    pollfd events{.fd = xcb_get_file_descriptor(connection_->raw()), .events = POLLIN, .revents = 0};
    poll(&events, 1, static_cast<int>(longest.count()));
  }
}

void DesktopScreen::waitForRest(std::chrono::milliseconds rest) {
  std::uint32_t front = currentDesktop();
  while (waitUntil(rest, [&] { return std::exchange(front, currentDesktop()) != front; })) {
  }
}

std::optional<xcb_window_t> DesktopScreen::managedWindow(const std::string& type) {
  const std::vector<xcb_window_t> windows = managedWindows();
  const auto found = std::ranges::find_if(windows, [&](xcb_window_t window) { return isOfType(window, type); });
  return found == windows.end() ? std::nullopt : std::optional(*found);
}

bool DesktopScreen::hasOverlayEverywhere() {
  return std::ranges::any_of(managedWindows(), [this](xcb_window_t window) {
    return isOfType(window, "NOTIFICATION") &&
           readNumber(*connection_, window, connection_->ewmh()->_NET_WM_DESKTOP, XCB_ATOM_CARDINAL) == allDesktops;
  });
}

std::vector<std::uint32_t> DesktopScreen::managedWindows() {
  return readNumbers(*connection_, connection_->root(), connection_->ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW)
      .value_or(std::vector<std::uint32_t>());
}

std::uint64_t DesktopScreen::pixmapBytes(xcb_window_t window) {
  const auto cookie = xcb_res_query_client_pixmap_bytes(connection_->raw(), window);
  const auto reply = replyTo(connection_->raw(), cookie, xcb_res_query_client_pixmap_bytes_reply);
  return reply == nullptr ? 0 : (static_cast<std::uint64_t>(reply->bytes_overflow) << 32U) + reply->bytes;
}

bool DesktopScreen::isOfType(xcb_window_t window, const std::string& type) {
  return readNumber(*connection_, window, connection_->ewmh()->_NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM) ==
         connection_->atom("_NET_WM_WINDOW_TYPE_" + type);
}

std::uint32_t DesktopScreen::rootNumber(xcb_atom_t property) {
  return readNumber(*connection_, connection_->root(), property, XCB_ATOM_CARDINAL).value_or(0);
}

}  // namespace roomlattice::benchmarks

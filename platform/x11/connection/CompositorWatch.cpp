#include "platform/x11/connection/CompositorWatch.h"

#include <array>
#include <chrono>
#include <string>
#include <utility>
#include <xcb/composite.h>
#include <xcb/xfixes.h>

namespace roomlattice::platform::x11 {
namespace {

using std::chrono::milliseconds;

/// How long after taking the selection a compositing manager may need until it redirects windows.
constexpr std::array retryDelays = {milliseconds(50), milliseconds(150), milliseconds(500), milliseconds(1500),
                                    milliseconds(5000)};

/// How long after its first redirected window it may be busy with its start.
constexpr milliseconds settlingTime(1000);

constexpr std::uint32_t ownerEvents = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

xcb_atom_t managerSelection(X11Connection& connection) {
  return connection.atom("_NET_WM_CM_S" + std::to_string(connection.screenNumber()));
}

bool hasExtension(X11Connection& connection, xcb_extension_t& extension) {
  const xcb_query_extension_reply_t* reply = xcb_get_extension_data(connection.raw(), &extension);
  return reply != nullptr && reply->present != 0;
}

/// Clients must say which version they speak before they use the extension.
bool startComposite(X11Connection& connection) {
  if (!hasExtension(connection, xcb_composite_id)) {
    return false;
  }
  const auto cookie = xcb_composite_query_version(connection.raw(), 0, 2);
  const auto reply = replyTo(connection.raw(), cookie, xcb_composite_query_version_reply);
  return reply != nullptr && (reply->major_version > 0 || reply->minor_version >= 2);
}

bool startFixes(X11Connection& connection) {
  if (!hasExtension(connection, xcb_xfixes_id)) {
    return false;
  }
  const auto cookie = xcb_xfixes_query_version(connection.raw(), 2, 0);
  return replyTo(connection.raw(), cookie, xcb_xfixes_query_version_reply) != nullptr;
}

}  // namespace

CompositorWatch::CompositorWatch(X11Connection& connection)
    : connection_(connection), canRedirect_(startComposite(connection)) {
  if (startFixes(connection)) {
    xcb_xfixes_select_selection_input(connection.raw(), connection.root(), managerSelection(connection), ownerEvents);
    const auto event = static_cast<std::uint8_t>(xcb_get_extension_data(connection.raw(), &xcb_xfixes_id)->first_event +
                                                 XCB_XFIXES_SELECTION_NOTIFY);
    selectionEvents_ = connection.observe(event, [this](const xcb_generic_event_t&) { ownerChanged(); });
  }
  update();
}

Registration CompositorWatch::observe(std::function<void()> handler) {
  return listeners_.add(std::move(handler));
}

void CompositorWatch::ownerChanged() {
  retries_ = 0;
  update();
}

void CompositorWatch::update() {
  retry_.stop();
  const bool owned = canRedirect_ && connection_.selectionOwner(managerSelection(connection_)) != XCB_WINDOW_NONE;
  const bool now = owned && redirectsWindows();
  if (owned && !now && retries_ < retryDelays.size()) {
    retry_.start(retryDelays[retries_++]);
  }
  now ? settle_.start(settlingTime) : settle_.stop();
  if (std::exchange(compositing_, now) != now) {
    listeners_.notify();
  }
}

bool CompositorWatch::redirectsWindows() const {
  // Only a redirected window has a pixmap that can be named. The window stays outside the screen, and nobody manages
  // it.
  xcb_connection_t* raw = connection_.raw();
  const xcb_window_t window = xcb_generate_id(raw);
  const xcb_pixmap_t pixmap = xcb_generate_id(raw);
  constexpr std::uint32_t overrideRedirect = 1;
  xcb_create_window(raw, XCB_COPY_FROM_PARENT, window, connection_.root(), -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
  xcb_map_window(raw, window);
  const auto cookie = xcb_composite_name_window_pixmap_checked(raw, window, pixmap);
  const XcbPointer<xcb_generic_error_t> error(xcb_request_check(raw, cookie));
  if (error == nullptr) {
    xcb_free_pixmap(raw, pixmap);
  }
  xcb_destroy_window(raw, window);
  xcb_flush(raw);
  return error == nullptr && !connection_.isLost();
}

}  // namespace roomlattice::platform::x11

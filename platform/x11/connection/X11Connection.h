#pragma once

#include "platform/Registration.h"
#include "support/Listeners.h"

#include <QMetaObject>
#include <QSocketNotifier>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

namespace roomlattice::platform::x11 {

/// Owner of a reply or event that xcb allocated.
struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using XcbPointer = std::unique_ptr<Reply, FreeDeleter>;

/// Waits for the reply to a request, such as `replyTo(raw, xcb_get_geometry(raw, window), xcb_get_geometry_reply)`.
/// Nothing when the request failed.
template <class Cookie, class Reply>
XcbPointer<Reply> replyTo(xcb_connection_t* connection, Cookie cookie,
                          Reply* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**)) {
  return XcbPointer<Reply>(wait(connection, cookie, nullptr));
}

/// The response type of those events whose type tells it.
template <class Event>
inline constexpr std::uint8_t responseTypeOf = 0;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_client_message_event_t> = XCB_CLIENT_MESSAGE;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_configure_notify_event_t> = XCB_CONFIGURE_NOTIFY;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_destroy_notify_event_t> = XCB_DESTROY_NOTIFY;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_expose_event_t> = XCB_EXPOSE;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_ge_generic_event_t> = XCB_GE_GENERIC;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_map_notify_event_t> = XCB_MAP_NOTIFY;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_property_notify_event_t> = XCB_PROPERTY_NOTIFY;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_reparent_notify_event_t> = XCB_REPARENT_NOTIFY;
template <>
inline constexpr std::uint8_t responseTypeOf<xcb_unmap_notify_event_t> = XCB_UNMAP_NOTIFY;

/// What a request to the window manager says of where it comes from (EWMH). Nothing holds back what comes straight from
/// the user, as through a pager.
inline constexpr std::uint32_t sourceIsApplication = 1;
inline constexpr std::uint32_t sourceIsPager = 2;

/// Sends a client message of format 32 about `window` to the root window, as EWMH has clients ask the window manager.
void sendToRoot(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window, xcb_atom_t type,
                const std::array<std::uint32_t, 5>& data);

/// The program's own connection to the X server, beside the toolkit's: what it listens to and asks for goes through
/// here. Events of windows are only seen by the connection that selected them.
class X11Connection {
 public:
  using EventHandler = std::function<void(const xcb_generic_event_t& event)>;

  /// Nothing when there is no such display, or nobody answers. An empty name stands for $DISPLAY.
  static std::unique_ptr<X11Connection> open(const std::string& display = {});

  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;
  ~X11Connection();

  /// Lets events be delivered by the event loop of the Qt application, which must exist by now, and sends what was
  /// requested before each time the loop is about to wait. May be called again for another application.
  void attachToEventLoop();

  xcb_connection_t* raw() const { return connection_; }
  xcb_ewmh_connection_t* ewmh() { return &ewmh_; }
  xcb_window_t root() const;
  int screenNumber() const { return screenNumber_; }

  /// The atom of that name, made if there was none; XCB_ATOM_NONE only when the server has gone.
  xcb_atom_t atom(std::string_view name);

  /// Selects these events on the root window in addition to those selected before.
  void selectOnRoot(std::uint32_t eventMask);

  /// Calls `handler` for each event of `responseType` (without the bit that marks sent events), from the event loop.
  Registration observe(std::uint8_t responseType, EventHandler handler);

  /// The same for an event with a type of its own, such as `observe<xcb_property_notify_event_t>(handler)`.
  template <class Event>
  Registration observe(std::function<void(const Event&)> handler) {
    static_assert(responseTypeOf<Event> != 0);
    return observe(responseTypeOf<Event>, [handler = std::move(handler)](const xcb_generic_event_t& event) {
      handler(reinterpret_cast<const Event&>(event));
    });
  }

  /// The same for those of such events that are about one window.
  template <class Event>
  Registration observe(xcb_window_t window, std::function<void(const Event&)> handler) {
    static_assert(responseTypeOf<Event> != 0);
    return observe(responseTypeOf<Event>, window, [handler = std::move(handler)](const xcb_generic_event_t& event) {
      handler(reinterpret_cast<const Event&>(event));
    });
  }

  /// Calls `handler` after a batch of events was delivered: everything that had arrived by then.
  Registration observeBatches(std::function<void()> handler);

  /// Calls `handler` once when the connection breaks. Nothing can be asked or heard afterwards.
  Registration observeLoss(std::function<void()> handler);

  /// XCB_WINDOW_NONE when nobody owns the selection.
  xcb_window_t selectionOwner(xcb_atom_t selection) const;

  /// Where the pointer is; nothing when the server has gone.
  XcbPointer<xcb_query_pointer_reply_t> queryPointer() const;

  /// Asks the window manager for something, see the function.
  void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data);

  /// Sends all requests made so far.
  void flush();

  /// Sends them and waits until the server has carried them out: what another connection asks for comes later then.
  void waitForServer();

  bool isLost() const { return xcb_connection_has_error(connection_) != 0; }

  /// Delivers the events that have arrived. The event loop does this by itself.
  void deliverEvents();

 private:
  X11Connection(xcb_connection_t* connection, int screenNumber);

  using WindowKey = std::pair<std::uint8_t, xcb_window_t>;
  using WindowListeners = std::map<WindowKey, Listeners<const xcb_generic_event_t&>>;

  Registration observe(std::uint8_t responseType, xcb_window_t window, EventHandler handler);
  using NextEvent = xcb_generic_event_t* (*)(xcb_connection_t*);
  void deliverEvents(NextEvent nextEvent);
  void deliver(const xcb_generic_event_t& event);
  void aboutToWait();
  void reportLoss();

  xcb_connection_t* connection_;
  int screenNumber_;
  xcb_screen_t* screen_ = nullptr;
  xcb_ewmh_connection_t ewmh_{};
  std::uint32_t rootEventMask_ = 0;
  bool lossReported_ = false;
  std::map<std::string, xcb_atom_t, std::less<>> atoms_;
  std::map<std::uint8_t, Listeners<const xcb_generic_event_t&>> eventListeners_;
  // Apart, as there may be hundreds of windows and each event is about one.
  std::shared_ptr<WindowListeners> windowListeners_ = std::make_shared<WindowListeners>();
  Listeners<> batchListeners_;
  Listeners<> lossListeners_;
  std::unique_ptr<QSocketNotifier> notifier_;
  QMetaObject::Connection waitConnection_;
};

}  // namespace roomlattice::platform::x11

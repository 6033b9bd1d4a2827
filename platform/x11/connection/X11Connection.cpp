#include "platform/x11/connection/X11Connection.h"

#include <QAbstractEventDispatcher>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::uint8_t responseTypeMask = 0x7f;

xcb_screen_t* screenAt(xcb_connection_t* connection, int number) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; number > 0 && screens.rem > 0; --number) {
    xcb_screen_next(&screens);
  }
  return screens.rem > 0 ? screens.data : nullptr;
}

/// The window that such an event is about, for those that can be observed for one window.
xcb_window_t subjectOf(const xcb_generic_event_t& event, std::uint8_t type) {
  switch (type) {
    case XCB_CONFIGURE_NOTIFY:
      return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_EXPOSE:
      return reinterpret_cast<const xcb_expose_event_t&>(event).window;
    case XCB_MAP_NOTIFY:
      return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_PROPERTY_NOTIFY:
      return reinterpret_cast<const xcb_property_notify_event_t&>(event).window;
    case XCB_REPARENT_NOTIFY:
      return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    case XCB_UNMAP_NOTIFY:
      return reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    default:
      return XCB_WINDOW_NONE;
  }
}

}  // namespace

void sendToRoot(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window, xcb_atom_t type,
                const std::array<std::uint32_t, 5>& data) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = type;
  std::ranges::copy(data, message.data.data32);
  xcb_send_event(connection, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
}

std::unique_ptr<X11Connection> X11Connection::open(const std::string& display) {
  int screenNumber = 0;
  xcb_connection_t* raw = xcb_connect(display.empty() ? nullptr : display.c_str(), &screenNumber);
  if (xcb_connection_has_error(raw) != 0) {
    xcb_disconnect(raw);
    return nullptr;
  }
  std::unique_ptr<X11Connection> connection(new X11Connection(raw, screenNumber));
  xcb_intern_atom_cookie_t* cookies = xcb_ewmh_init_atoms(raw, &connection->ewmh_);
  const bool ready = xcb_ewmh_init_atoms_replies(&connection->ewmh_, cookies, nullptr) != 0;
  if (!ready) {
    // The library has freed what is in it already.
    connection->ewmh_ = {};
  }
  return ready && connection->screen_ != nullptr ? std::move(connection) : nullptr;
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber)
    : connection_(connection), screenNumber_(screenNumber), screen_(screenAt(connection, screenNumber)) {}

X11Connection::~X11Connection() {
  QObject::disconnect(waitConnection_);
  notifier_.reset();
  xcb_ewmh_connection_wipe(&ewmh_);
  xcb_disconnect(connection_);
}

void X11Connection::attachToEventLoop() {
  QObject::disconnect(waitConnection_);
  notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { deliverEvents(); });
  // A round trip takes events off the socket too; they wait in xcb's queue, where no notifier sees them.
  waitConnection_ = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                                     [this] { aboutToWait(); });
}

xcb_window_t X11Connection::root() const {
  return screen_->root;
}

xcb_atom_t X11Connection::atom(std::string_view name) {
  if (const auto found = atoms_.find(name); found != atoms_.end()) {
    return found->second;
  }
  const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const auto reply = replyTo(connection_, cookie, xcb_intern_atom_reply);
  if (reply == nullptr) {
    return XCB_ATOM_NONE;
  }
  atoms_.emplace(name, reply->atom);
  return reply->atom;
}

void X11Connection::selectOnRoot(std::uint32_t eventMask) {
  rootEventMask_ |= eventMask;
  xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &rootEventMask_);
  flush();
}

Registration X11Connection::observe(std::uint8_t responseType, EventHandler handler) {
  return eventListeners_[responseType].add(std::move(handler));
}

Registration X11Connection::observe(std::uint8_t responseType, xcb_window_t window, EventHandler handler) {
  const WindowKey key(responseType, window);
  auto listening = std::make_shared<Registration>((*windowListeners_)[key].add(std::move(handler)));
  return Registration([weak = std::weak_ptr(windowListeners_), key, listening] {
    listening->cancel();
    const auto listeners = weak.lock();
    if (listeners != nullptr && listeners->at(key).empty()) {
      listeners->erase(key);
    }
  });
}

Registration X11Connection::observeBatches(std::function<void()> handler) {
  return batchListeners_.add(std::move(handler));
}

Registration X11Connection::observeLoss(std::function<void()> handler) {
  return lossListeners_.add(std::move(handler));
}

xcb_window_t X11Connection::selectionOwner(xcb_atom_t selection) const {
  const auto reply =
      replyTo(connection_, xcb_get_selection_owner(connection_, selection), xcb_get_selection_owner_reply);
  return reply == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : reply->owner;
}

XcbPointer<xcb_query_pointer_reply_t> X11Connection::queryPointer() const {
  return replyTo(connection_, xcb_query_pointer(connection_, root()), xcb_query_pointer_reply);
}

void X11Connection::sendToRoot(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data) {
  x11::sendToRoot(connection_, root(), window, type, data);
  flush();
}

void X11Connection::flush() {
  xcb_flush(connection_);
}

void X11Connection::waitForServer() {
  replyTo(connection_, xcb_get_input_focus(connection_), xcb_get_input_focus_reply);
}

void X11Connection::deliverEvents() {
  deliverEvents(xcb_poll_for_event);
}

void X11Connection::deliverEvents(NextEvent nextEvent) {
  bool any = false;
  while (const XcbPointer<xcb_generic_event_t> event{nextEvent(connection_)}) {
    any = true;
    deliver(*event);
  }
  if (any) {
    batchListeners_.notify();
  }
  if (isLost()) {
    reportLoss();
  }
}

void X11Connection::deliver(const xcb_generic_event_t& event) {
  const std::uint8_t type = event.response_type & responseTypeMask;
  if (const auto listeners = eventListeners_.find(type); listeners != eventListeners_.end()) {
    listeners->second.notify(event);
  }
  const auto window = subjectOf(event, type);
  if (const auto listeners = windowListeners_->find({type, window}); listeners != windowListeners_->end()) {
    listeners->second.notify(event);
  }
}

void X11Connection::aboutToWait() {
  // What has not been read yet wakes the loop at once.
  deliverEvents(xcb_poll_for_queued_event);
  flush();
}

void X11Connection::reportLoss() {
  // A broken socket stays readable for ever.
  notifier_.reset();
  if (!std::exchange(lossReported_, true)) {
    lossListeners_.notify();
  }
}

}  // namespace roomlattice::platform::x11

#include "platform/x11/connection/FullScreenWatch.h"

#include "platform/x11/connection/Properties.h"

#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {

FullScreenWatch::FullScreenWatch(X11Connection& connection, std::function<void()> changed)
    : connection_(connection), changed_(std::move(changed)) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    const xcb_ewmh_connection_t& atoms = *connection_.ewmh();
    isOtherActive_ = isOtherActive_ || (notify.window == connection_.root() && notify.atom == atoms._NET_ACTIVE_WINDOW);
    isOtherState_ = isOtherState_ || (notify.window == active_ && notify.atom == atoms._NET_WM_STATE);
  });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
  follow();
  area_ = readArea();
}

FullScreenWatch::~FullScreenWatch() {
  leave();
}

void FullScreenWatch::batchEnded() {
  const bool isOtherState = std::exchange(isOtherState_, false);
  const bool isOtherActive = std::exchange(isOtherActive_, false);
  if (!isOtherActive && !isOtherState) {
    return;
  }
  if (isOtherActive) {
    leave();
    follow();
  }
  std::optional<QRect> area = readArea();
  if (std::exchange(area_, area) != area) {
    changed_();
  }
}

void FullScreenWatch::follow() {
  const xcb_atom_t property = connection_.ewmh()->_NET_ACTIVE_WINDOW;
  active_ = readNumber(connection_, connection_.root(), property, XCB_ATOM_WINDOW).value_or(XCB_WINDOW_NONE);
  if (active_ == XCB_WINDOW_NONE) {
    return;
  }
  xcb_connection_t* raw = connection_.raw();
  const auto attributes = replyTo(raw, xcb_get_window_attributes(raw, active_), xcb_get_window_attributes_reply);
  if (attributes == nullptr) {
    // It has gone already.
    active_ = XCB_WINDOW_NONE;
    return;
  }
  // It may be one of the program's own, or one it listens to for something else.
  formerEvents_ = attributes->your_event_mask;
  const std::uint32_t events = formerEvents_ | XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(raw, active_, XCB_CW_EVENT_MASK, &events);
}

void FullScreenWatch::leave() {
  if (active_ != XCB_WINDOW_NONE) {
    // Where it has gone, that is an error nobody hears of.
    xcb_change_window_attributes(connection_.raw(), active_, XCB_CW_EVENT_MASK, &formerEvents_);
    connection_.flush();
  }
}

std::optional<QRect> FullScreenWatch::readArea() const {
  if (active_ == XCB_WINDOW_NONE) {
    return std::nullopt;
  }
  const xcb_ewmh_connection_t& atoms = *connection_.ewmh();
  const auto states = readNumbers(connection_, active_, atoms._NET_WM_STATE, XCB_ATOM_ATOM);
  if (!states || std::ranges::find(*states, atoms._NET_WM_STATE_FULLSCREEN) == states->end()) {
    return std::nullopt;
  }
  xcb_connection_t* raw = connection_.raw();
  const auto geometry = replyTo(raw, xcb_get_geometry(raw, active_), xcb_get_geometry_reply);
  const auto corner =
      replyTo(raw, xcb_translate_coordinates(raw, active_, connection_.root(), 0, 0), xcb_translate_coordinates_reply);
  if (geometry == nullptr || corner == nullptr) {
    return std::nullopt;
  }
  return QRect(corner->dst_x, corner->dst_y, geometry->width, geometry->height);
}

}  // namespace roomlattice::platform::x11

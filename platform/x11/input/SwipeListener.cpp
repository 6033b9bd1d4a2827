#include "platform/x11/input/SwipeListener.h"

#include <utility>

namespace roomlattice::platform::x11 {
namespace {

double fromFixedPoint(xcb_input_fp1616_t number) {
  return number / 65536.0;
}

TouchpadSwipe::Stage stage(const xcb_input_gesture_swipe_begin_event_t& event) {
  switch (event.event_type) {
    case XCB_INPUT_GESTURE_SWIPE_BEGIN:
      return TouchpadSwipe::Stage::Begin;
    case XCB_INPUT_GESTURE_SWIPE_UPDATE:
      return TouchpadSwipe::Stage::Update;
    default:
      return (event.flags & XCB_INPUT_GESTURE_SWIPE_EVENT_FLAGS_GESTURE_SWIPE_CANCELLED) != 0
                 ? TouchpadSwipe::Stage::Cancel
                 : TouchpadSwipe::Stage::End;
  }
}

bool isSwipe(unsigned eventType) {
  return eventType >= XCB_INPUT_GESTURE_SWIPE_BEGIN && eventType <= XCB_INPUT_GESTURE_SWIPE_END;
}

}  // namespace

SwipeListener::SwipeListener(XInput& input, std::function<void(const FieldEvent&)> handler)
    : input_(input), handler_(std::move(handler)) {
  events_ = input_.observe([this](const xcb_ge_generic_event_t& event) { handle(event); });
  input_.select(XCB_INPUT_DEVICE_ALL, {XCB_INPUT_HIERARCHY});
  followDevices();
}

SwipeListener::~SwipeListener() {
  for (const xcb_input_device_id_t device : devices_) {
    input_.select(device, {});
  }
  input_.select(XCB_INPUT_DEVICE_ALL, {});
}

void SwipeListener::followDevices() {
  devices_.clear();
  for (const xcb_input_device_id_t device : input_.gestureDevices()) {
    devices_.insert(device);
    input_.select(device, {XCB_INPUT_GESTURE_SWIPE_BEGIN, XCB_INPUT_GESTURE_SWIPE_UPDATE, XCB_INPUT_GESTURE_SWIPE_END});
  }
}

void SwipeListener::handle(const xcb_ge_generic_event_t& event) {
  if (event.event_type == XCB_INPUT_HIERARCHY) {
    followDevices();
    return;
  }
  if (!isSwipe(event.event_type)) {
    return;
  }
  const auto& swipe = reinterpret_cast<const xcb_input_gesture_swipe_begin_event_t&>(event);
  const std::optional<FieldEvent> translated =
      translators_[swipe.sourceid].translate({.stage = stage(swipe),
                                              .fingers = swipe.detail,
                                              .deltaX = fromFixedPoint(swipe.delta_x),
                                              .deltaY = fromFixedPoint(swipe.delta_y),
                                              .time = std::chrono::milliseconds(swipe.time)});
  if (translated) {
    handler_(*translated);
  }
}

}  // namespace roomlattice::platform::x11

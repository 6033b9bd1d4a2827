#pragma once

#include "platform/x11/connection/XInput.h"
#include "platform/x11/input/SwipeTranslator.h"

#include <functional>
#include <map>
#include <set>

namespace roomlattice::platform::x11 {

/// Hears the swipes of every touchpad, also of those plugged in later, as long as it lives. Over a window whose
/// application itself listens to gestures the server tells only that application.
class SwipeListener {
 public:
  /// `handler` gets the events of Dock swipes, from the event loop. `input` must have gestures.
  SwipeListener(XInput& input, std::function<void(const FieldEvent&)> handler);
  ~SwipeListener();
  SwipeListener(const SwipeListener&) = delete;
  SwipeListener& operator=(const SwipeListener&) = delete;

 private:
  void followDevices();
  void handle(const xcb_ge_generic_event_t& event);

  XInput& input_;
  std::function<void(const FieldEvent&)> handler_;
  std::set<xcb_input_device_id_t> devices_;
  std::map<xcb_input_device_id_t, SwipeTranslator> translators_;
  Registration events_;
};

}  // namespace roomlattice::platform::x11

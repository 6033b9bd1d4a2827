#pragma once

#include "platform/DockSwipe.h"
#include "support/FieldEvent.h"

#include <chrono>
#include <optional>

namespace roomlattice::platform::x11 {

/// One event of a touchpad swipe as the X server tells it (XInput 2.4).
struct TouchpadSwipe {
  enum class Stage { Begin, Update, End, Cancel };

  Stage stage = Stage::Begin;
  unsigned fingers = 0;
  // The way since the last event, in the server's units; x grows to the right, y downwards.
  double deltaX = 0.0;
  double deltaY = 0.0;
  std::chrono::milliseconds time{0};
};

/// Makes Dock swipes out of touchpad swipes of three or more fingers along a row of desktops. It waits until the
/// fingers have come far enough to tell the direction, so that already the first event has it, whatever way they made
/// until then: its velocity is the mean of that way's. Fingers that move to the left pull the next desktop in from the
/// right: progress and velocity are positive then. A swipe up or down is none.
class SwipeTranslator {
 public:
  /// The event of the Dock swipe that follows from `swipe`, if any. A user makes it, so its source is no process.
  std::optional<FieldEvent> translate(const TouchpadSwipe& swipe);

 private:
  enum class State { Idle, Undecided, Horizontal, Ignored };

  void begin(const TouchpadSwipe& swipe);
  std::optional<FieldEvent> update(const TouchpadSwipe& swipe);
  std::optional<FieldEvent> end(DockSwipe::Phase phase);
  FieldEvent event(DockSwipe::Phase phase) const;

  State state_ = State::Idle;
  double x_ = 0.0;
  double y_ = 0.0;
  double velocity_ = 0.0;  // desktops per second
  std::chrono::milliseconds beginning_{0};
  std::chrono::milliseconds lastTime_{0};
};

}  // namespace roomlattice::platform::x11

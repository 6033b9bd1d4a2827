#include "platform/x11/input/SwipeTranslator.h"

#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr unsigned fewestFingers = 3;

// The server's units are those of pointer motion: about what moves the pointer by a pixel.
constexpr double decisiveWay = 6.0;
constexpr double wayToNextDesktop = 400.0;

/// Of fingers, which pull the desktops the other way; 0 where no time has passed.
double desktopsPerSecond(double way, std::chrono::duration<double> time) {
  return time.count() > 0.0 ? -way / wayToNextDesktop / time.count() : 0.0;
}

}  // namespace

std::optional<FieldEvent> SwipeTranslator::translate(const TouchpadSwipe& swipe) {
  switch (swipe.stage) {
    case TouchpadSwipe::Stage::Begin:
      begin(swipe);
      return std::nullopt;
    case TouchpadSwipe::Stage::Update:
      return update(swipe);
    case TouchpadSwipe::Stage::End:
      return end(DockSwipe::Ended);
    case TouchpadSwipe::Stage::Cancel:
      return end(DockSwipe::Cancelled);
  }
  return std::nullopt;
}

void SwipeTranslator::begin(const TouchpadSwipe& swipe) {
  *this = {};
  state_ = swipe.fingers >= fewestFingers ? State::Undecided : State::Ignored;
  beginning_ = swipe.time;
  lastTime_ = swipe.time;
}

std::optional<FieldEvent> SwipeTranslator::update(const TouchpadSwipe& swipe) {
  x_ += swipe.deltaX;
  y_ += swipe.deltaY;
  velocity_ = desktopsPerSecond(swipe.deltaX, swipe.time - lastTime_);
  lastTime_ = swipe.time;
  if (state_ == State::Horizontal) {
    return event(DockSwipe::Changed);
  }
  if (state_ != State::Undecided || std::hypot(x_, y_) < decisiveWay) {
    return std::nullopt;
  }
  state_ = std::abs(x_) > std::abs(y_) ? State::Horizontal : State::Ignored;
  // The last of the motions may have gone against the others.
  velocity_ = desktopsPerSecond(x_, swipe.time - beginning_);
  return state_ == State::Horizontal ? std::optional(event(DockSwipe::Began)) : std::nullopt;
}

std::optional<FieldEvent> SwipeTranslator::end(DockSwipe::Phase phase) {
  const bool told = state_ == State::Horizontal;
  state_ = State::Idle;
  return told ? std::optional(event(phase)) : std::nullopt;
}

FieldEvent SwipeTranslator::event(DockSwipe::Phase phase) const {
  FieldEvent event;
  DockSwipe{.phase = phase, .progress = -x_ / wayToNextDesktop, .velocity = velocity_}.write(event);
  return event;
}

}  // namespace roomlattice::platform::x11

#include "platform/DockSwipe.h"

namespace roomlattice::platform {
namespace {

// The window server's numbers, as seen in the events of a trackpad.
constexpr std::int64_t dockEvent = 30;     // EventField::Kind
constexpr std::int64_t swipeGesture = 23;  // EventField::GestureKind

}  // namespace

std::optional<DockSwipe> DockSwipe::read(const Event& event) {
  if (event.integer(EventField::Kind) != dockEvent || event.integer(EventField::GestureKind) != swipeGesture) {
    return std::nullopt;
  }
  return DockSwipe{.phase = static_cast<Phase>(event.integer(EventField::Phase)),
                   .progress = event.real(EventField::Progress),
                   .velocity = event.real(EventField::Velocity),
                   .axis = static_cast<Axis>(event.integer(EventField::SwipeAxis))};
}

void DockSwipe::write(Event& event) const {
  // In the order in which the system's own events are filled.
  event.setInteger(EventField::Kind, dockEvent);
  event.setInteger(EventField::GestureKind, swipeGesture);
  event.setInteger(EventField::Phase, phase);
  event.setReal(EventField::Progress, progress);
  event.setInteger(EventField::SwipeAxis, axis);
  event.setReal(EventField::Velocity, velocity);
  event.setReal(EventField::SecondaryVelocity, velocity);
}

Direction DockSwipe::direction() const {
  const double decisive = velocity == 0.0 ? progress : velocity;
  return decisive >= 0.0 ? Direction::Right : Direction::Left;
}

}  // namespace roomlattice::platform

#include "platform/simulated/SimulatedEvent.h"

namespace roomlattice::platform::simulated {

SimulatedEvent::SimulatedEvent(const Event& other) {
  if (const auto* simulated = dynamic_cast<const SimulatedEvent*>(&other)) {
    fields_ = simulated->fields_;
    return;
  }
  for (const EventField field : {EventField::SourceProcessID, EventField::Kind, EventField::GestureKind,
                                 EventField::SwipeAxis, EventField::Phase}) {
    setInteger(field, other.integer(field));
  }
  for (const EventField field : {EventField::Progress, EventField::Velocity, EventField::SecondaryVelocity}) {
    setReal(field, other.real(field));
  }
}

std::int64_t SimulatedEvent::integer(EventField field) const {
  const auto found = fields_.find(field);
  if (found == fields_.end()) {
    return 0;
  }
  return std::visit([](auto number) { return static_cast<std::int64_t>(number); }, found->second);
}

double SimulatedEvent::real(EventField field) const {
  const auto found = fields_.find(field);
  if (found == fields_.end()) {
    return 0.0;
  }
  return std::visit([](auto number) { return static_cast<double>(number); }, found->second);
}

void SimulatedEvent::setInteger(EventField field, std::int64_t value) {
  fields_[field] = value;
}

void SimulatedEvent::setReal(EventField field, double value) {
  fields_[field] = value;
}

}  // namespace roomlattice::platform::simulated

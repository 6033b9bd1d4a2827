#include "support/FieldEvent.h"

namespace roomlattice {

using platform::EventField;

FieldEvent::FieldEvent(const platform::Event& other) {
  if (const auto* record = dynamic_cast<const FieldEvent*>(&other)) {
    fields_ = record->fields_;
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

std::int64_t FieldEvent::integer(EventField field) const {
  const auto found = fields_.find(field);
  if (found == fields_.end()) {
    return 0;
  }
  return std::visit([](auto number) { return static_cast<std::int64_t>(number); }, found->second);
}

double FieldEvent::real(EventField field) const {
  const auto found = fields_.find(field);
  if (found == fields_.end()) {
    return 0.0;
  }
  return std::visit([](auto number) { return static_cast<double>(number); }, found->second);
}

}  // namespace roomlattice

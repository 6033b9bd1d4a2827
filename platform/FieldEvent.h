#pragma once

#include "platform/Events.h"

#include <cstdint>
#include <map>
#include <variant>

namespace roomlattice::platform {

/// An event for backends whose system has none of its own: a copyable record of its fields. A field set as one kind of
/// number and read as the other is converted, by truncation where an integer is read.
class FieldEvent final : public Event {
 public:
  FieldEvent() = default;
  /// A copy of any event, through the fields that EventField names.
  explicit FieldEvent(const Event& other);

  std::int64_t integer(EventField field) const override;
  double real(EventField field) const override;
  void setInteger(EventField field, std::int64_t value) override { fields_[field] = value; }
  void setReal(EventField field, double value) override { fields_[field] = value; }

  bool operator==(const FieldEvent& other) const { return fields_ == other.fields_; }

 private:
  std::map<EventField, std::variant<std::int64_t, double>> fields_;
};

}  // namespace roomlattice::platform

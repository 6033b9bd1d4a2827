#pragma once

#include "platform/Events.h"

#include <cstdint>
#include <map>
#include <variant>

namespace roomlattice {

/// An event for backends whose system has none of its own: a copyable record of its fields. A field set as one kind of
/// number and read as the other is converted, by truncation where an integer is read.
class FieldEvent final : public platform::Event {
 public:
  FieldEvent() = default;
  /// A copy of any event, through the fields that EventField names.
  explicit FieldEvent(const platform::Event& other);

  std::int64_t integer(platform::EventField field) const override;
  double real(platform::EventField field) const override;
  void setInteger(platform::EventField field, std::int64_t value) override { fields_[field] = value; }
  void setReal(platform::EventField field, double value) override { fields_[field] = value; }

  bool operator==(const FieldEvent& other) const { return fields_ == other.fields_; }

 private:
  std::map<platform::EventField, std::variant<std::int64_t, double>> fields_;
};

}  // namespace roomlattice

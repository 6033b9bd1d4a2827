#pragma once

#include "platform/simulated/VirtualTime.h"
#include "tests/support/ForwardingEvents.h"
#include "tests/support/ForwardingPlatform.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <utility>
#include <variant>
#include <vector>

namespace roomlattice::tests {

using FieldValue = std::variant<std::int64_t, double>;

/// A field as it was set: its number and, of the kind it was set as, its value.
using EventFields = std::vector<std::pair<platform::EventField, FieldValue>>;

struct PostedEvent {
  platform::Duration at{0};
  /// In the order they were set.
  EventFields fields;

  bool operator==(const PostedEvent&) const = default;
};

inline void PrintTo(const PostedEvent& event, std::ostream* out) {
  *out << "at " << event.at.count() << " ns:" << std::hexfloat;
  for (const auto& [field, value] : event.fields) {
    *out << ' ' << static_cast<std::uint32_t>(field) << '=';
    std::visit([out](auto number) { *out << number; }, value);
  }
  *out << std::defaultfloat;
}

/// A platform that notes down what the program posts into the event stream, as it is posted, and hands it on.
class EventRecorder final : public ForwardingPlatform {
 public:
  EventRecorder(platform::Platform& inner, const platform::simulated::VirtualTime& time)
      : ForwardingPlatform(inner), events_(inner.events(), time) {}

  platform::Events& events() override { return events_; }

  const std::vector<PostedEvent>& posted() const { return events_.posted; }

 private:
  class RecordedEvent final : public platform::Event {
   public:
    explicit RecordedEvent(std::unique_ptr<platform::Event> inner) : inner_(std::move(inner)) {}

    std::int64_t integer(platform::EventField field) const override { return inner_->integer(field); }
    double real(platform::EventField field) const override { return inner_->real(field); }
    void setInteger(platform::EventField field, std::int64_t value) override {
      fields_.emplace_back(field, value);
      inner_->setInteger(field, value);
    }
    void setReal(platform::EventField field, double value) override {
      fields_.emplace_back(field, value);
      inner_->setReal(field, value);
    }

    const platform::Event& inner() const { return *inner_; }
    const EventFields& fields() const { return fields_; }

   private:
    std::unique_ptr<platform::Event> inner_;
    EventFields fields_;
  };

  class RecordingEvents final : public ForwardingEvents {
   public:
    RecordingEvents(platform::Events& inner, const platform::simulated::VirtualTime& time)
        : ForwardingEvents(inner), time_(time) {}

    std::unique_ptr<platform::Event> createEvent() override {
      std::unique_ptr<platform::Event> event = ForwardingEvents::createEvent();
      return event == nullptr ? nullptr : std::make_unique<RecordedEvent>(std::move(event));
    }
    void post(const platform::Event& event) override {
      const auto& recorded = dynamic_cast<const RecordedEvent&>(event);
      posted.push_back({.at = time_.now(), .fields = recorded.fields()});
      ForwardingEvents::post(recorded.inner());
    }

    std::vector<PostedEvent> posted;

   private:
    const platform::simulated::VirtualTime& time_;
  };

  RecordingEvents events_;
};

}  // namespace roomlattice::tests

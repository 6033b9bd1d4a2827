#pragma once

#import <ApplicationServices/ApplicationServices.h>

#include "platform/Events.h"

namespace roomlattice::platform::macos {

/// A CGEvent. Without one, all fields read as 0.
class MacEvent final : public Event {
 public:
  /// Keeps a reference of its own beside the caller's.
  explicit MacEvent(CGEventRef event);
  ~MacEvent() override;
  MacEvent(const MacEvent&) = delete;
  MacEvent& operator=(const MacEvent&) = delete;

  std::int64_t integer(EventField field) const override;
  double real(EventField field) const override;
  void setInteger(EventField field, std::int64_t value) override;
  void setReal(EventField field, double value) override;

  CGEventRef get() const { return event_; }

 private:
  CGEventRef event_;
};

}  // namespace roomlattice::platform::macos

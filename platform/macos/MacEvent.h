#pragma once

#import <ApplicationServices/ApplicationServices.h>

#import "platform/macos/CoreFoundationPointer.h"

#include "platform/Events.h"

#include <utility>

namespace roomlattice::platform::macos {

/// A Quartz event.
class MacEvent final : public Event {
 public:
  /// Not null.
  explicit MacEvent(CoreFoundationPointer<CGEventRef> event) : event_(std::move(event)) {}

  std::int64_t integer(EventField field) const override;
  double real(EventField field) const override;
  void setInteger(EventField field, std::int64_t value) override;
  void setReal(EventField field, double value) override;

  CGEventRef get() const { return event_.get(); }

 private:
  CoreFoundationPointer<CGEventRef> event_;
};

}  // namespace roomlattice::platform::macos

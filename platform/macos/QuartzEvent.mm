#import "platform/macos/QuartzEvent.h"

namespace roomlattice::platform::macos {
namespace {

CGEventField number(EventField field) {
  return static_cast<CGEventField>(field);
}

}  // namespace

QuartzEvent::QuartzEvent(CGEventRef event) : event_(event) {
  if (event_ != nullptr) {
    CFRetain(event_);
  }
}

QuartzEvent::~QuartzEvent() {
  if (event_ != nullptr) {
    CFRelease(event_);
  }
}

std::int64_t QuartzEvent::integer(EventField field) const {
  return event_ == nullptr ? 0 : CGEventGetIntegerValueField(event_, number(field));
}

double QuartzEvent::real(EventField field) const {
  return event_ == nullptr ? 0.0 : CGEventGetDoubleValueField(event_, number(field));
}

void QuartzEvent::setInteger(EventField field, std::int64_t value) {
  CGEventSetIntegerValueField(event_, number(field), value);
}

void QuartzEvent::setReal(EventField field, double value) {
  CGEventSetDoubleValueField(event_, number(field), value);
}

}  // namespace roomlattice::platform::macos

#import "platform/macos/MacEvent.h"

namespace roomlattice::platform::macos {
namespace {

CGEventField number(EventField field) {
  return static_cast<CGEventField>(field);
}

}  // namespace

MacEvent::MacEvent(CGEventRef event) : event_(event) {
  if (event_ != nullptr) {
    CFRetain(event_);
  }
}

MacEvent::~MacEvent() {
  if (event_ != nullptr) {
    CFRelease(event_);
  }
}

std::int64_t MacEvent::integer(EventField field) const {
  return event_ == nullptr ? 0 : CGEventGetIntegerValueField(event_, number(field));
}

double MacEvent::real(EventField field) const {
  return event_ == nullptr ? 0.0 : CGEventGetDoubleValueField(event_, number(field));
}

void MacEvent::setInteger(EventField field, std::int64_t value) {
  CGEventSetIntegerValueField(event_, number(field), value);
}

void MacEvent::setReal(EventField field, double value) {
  CGEventSetDoubleValueField(event_, number(field), value);
}

}  // namespace roomlattice::platform::macos

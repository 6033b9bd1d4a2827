#import "platform/macos/MacEvent.h"

namespace roomlattice::platform::macos {
namespace {

CGEventField number(EventField field) {
  return static_cast<CGEventField>(field);
}

}  // namespace

std::int64_t MacEvent::integer(EventField field) const {
  return CGEventGetIntegerValueField(get(), number(field));
}

double MacEvent::real(EventField field) const {
  return CGEventGetDoubleValueField(get(), number(field));
}

void MacEvent::setInteger(EventField field, std::int64_t value) {
  CGEventSetIntegerValueField(get(), number(field), value);
}

void MacEvent::setReal(EventField field, double value) {
  CGEventSetDoubleValueField(get(), number(field), value);
}

}  // namespace roomlattice::platform::macos

#include "platform/simulated/EventStream.h"

#include "support/Fatal.h"

namespace roomlattice::platform::simulated {

Registration EventStream::attach(InputListener& listener) {
  if (listener_ != nullptr) {
    fatal("a program runs on this simulated desktop already");
  }
  listener_ = &listener;
  return Registration([this] { listener_ = nullptr; });
}

void EventStream::post(const Event& event, std::int64_t processID) {
  if (faults_.accessibilityDenied) {
    return;
  }
  FieldEvent copy(event);
  copy.setInteger(EventField::SourceProcessID, processID);
  time_.post(Duration::zero(), [this, copy] { pass(copy); });
}

void EventStream::pass(const FieldEvent& event) {
  if (listener_ != nullptr && !faults_.accessibilityDenied) {
    listener_->eventPassed(event, static_cast<std::uint32_t>(event.integer(EventField::Kind)));
  }
  dock_.handle(event);
}

void EventStream::disableTaps(TapDisabling cause) {
  if (listener_ != nullptr) {
    listener_->tapsDisabled(cause);
  }
}

}  // namespace roomlattice::platform::simulated

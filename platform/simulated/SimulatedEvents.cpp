#include "platform/simulated/SimulatedEvents.h"

#include <utility>

namespace roomlattice::platform::simulated {

struct SimulatedEvents::TapState {
  TapHandler handler;
  bool enabled = false;
};

class SimulatedEvents::Tap final : public EventTap {
 public:
  Tap(std::shared_ptr<TapState> state, Registration registration)
      : state_(std::move(state)), registration_(std::move(registration)) {}

  void enable() override { state_->enabled = true; }

 private:
  std::shared_ptr<TapState> state_;
  Registration registration_;
};

SimulatedEvents::SimulatedEvents(EventStream& stream, Faults& faults)
    : stream_(stream), faults_(faults), attachment_(stream.attach(*this)) {}

std::unique_ptr<Event> SimulatedEvents::createEvent() {
  if (faults_.eventsNotCreated > 0) {
    --faults_.eventsNotCreated;
    return nullptr;
  }
  return std::make_unique<FieldEvent>();
}

void SimulatedEvents::post(const Event& event) {
  stream_.post(event, processID);
}

std::unique_ptr<EventTap> SimulatedEvents::createTap(TapHandler handler) {
  if (faults_.accessibilityDenied) {
    return nullptr;
  }
  auto state = std::make_shared<TapState>(TapState{.handler = std::move(handler)});
  Registration registration = taps_.add(state);
  return std::make_unique<Tap>(std::move(state), std::move(registration));
}

Registration SimulatedEvents::monitorGlobalMouseMoved(std::function<void()> handler) {
  return faults_.pointerMonitorsRefused ? Registration() : pointerMonitors_.add(std::move(handler));
}

Registration SimulatedEvents::monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) {
  return keyMonitors_.add(std::move(handler));
}

Point SimulatedEvents::mouseLocation() const {
  return stream_.pointer();
}

void SimulatedEvents::eventPassed(const Event& event, std::uint32_t type) {
  taps_.forEach([&](const std::shared_ptr<TapState>& tap) {
    if (tap->enabled) {
      tap->handler(event, type);
    }
  });
}

void SimulatedEvents::tapsDisabled(TapDisabling cause) {
  const std::uint32_t type =
      cause == TapDisabling::ByTimeout ? tapEvent::disabledByTimeout : tapEvent::disabledByUserInput;
  taps_.forEach([type](const std::shared_ptr<TapState>& tap) {
    if (std::exchange(tap->enabled, false)) {
      tap->handler(FieldEvent(), type);
    }
  });
}

void SimulatedEvents::pointerMovedElsewhere() {
  pointerMonitors_.forEach([](const std::function<void()>& handler) { handler(); });
}

KeyDisposition SimulatedEvents::keyPressed(const KeyEvent& event) {
  KeyDisposition disposition = KeyDisposition::PassOn;
  keyMonitors_.forEach([&](const std::function<KeyDisposition(const KeyEvent&)>& handler) {
    if (disposition == KeyDisposition::PassOn) {
      disposition = handler(event);
    }
  });
  return disposition;
}

}  // namespace roomlattice::platform::simulated

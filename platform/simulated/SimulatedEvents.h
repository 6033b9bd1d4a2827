#pragma once

#include "platform/Events.h"
#include "platform/simulated/EventStream.h"
#include "platform/simulated/Faults.h"
#include "support/RegistrationList.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace roomlattice::platform::simulated {

/// One program's place in the event stream.
class SimulatedEvents final : public Events, private InputListener {
 public:
  /// The source of everything the program posts.
  static constexpr std::int64_t processID = 4242;

  SimulatedEvents(EventStream& stream, Faults& faults);

  std::unique_ptr<Event> createEvent() override;
  void post(const Event& event) override;
  std::unique_ptr<EventTap> createTap(TapHandler handler) override;
  Registration monitorGlobalMouseMoved(std::function<void()> handler) override;
  Registration monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) override;
  Point mouseLocation() const override;

 private:
  struct TapState;
  class Tap;

  void eventPassed(const Event& event, std::uint32_t type) override;
  void tapsDisabled(TapDisabling cause) override;
  void pointerMovedElsewhere() override;
  KeyDisposition keyPressed(const KeyEvent& event) override;

  EventStream& stream_;
  Faults& faults_;
  RegistrationList<std::shared_ptr<TapState>> taps_;
  RegistrationList<std::function<void()>> pointerMonitors_;
  RegistrationList<std::function<KeyDisposition(const KeyEvent&)>> keyMonitors_;
  Registration attachment_;
};

}  // namespace roomlattice::platform::simulated

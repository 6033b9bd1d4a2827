#pragma once

#include "platform/Events.h"

namespace roomlattice::platform::macos {

/// Quartz events, and the monitors of NSEvent.
class MacEvents final : public Events {
 public:
  std::unique_ptr<Event> createEvent() override;
  void post(const Event& event) override;
  std::unique_ptr<EventTap> createTap(TapHandler handler) override;
  Registration monitorGlobalMouseMoved(std::function<void()> handler) override;
  Registration monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) override;
  Point mouseLocation() const override;
};

}  // namespace roomlattice::platform::macos

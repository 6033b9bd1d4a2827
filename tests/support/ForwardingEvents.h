#pragma once

#include "platform/Events.h"

#include <functional>
#include <memory>
#include <utility>

namespace roomlattice::tests {

/// Hands everything on to other events; see ForwardingPlatform.
class ForwardingEvents : public platform::Events {
 public:
  explicit ForwardingEvents(platform::Events& inner) : inner_(inner) {}

  std::unique_ptr<platform::Event> createEvent() override { return inner_.createEvent(); }
  void post(const platform::Event& event) override { inner_.post(event); }
  std::unique_ptr<platform::EventTap> createTap(TapHandler handler) override {
    return inner_.createTap(std::move(handler));
  }
  platform::Registration monitorGlobalMouseMoved(std::function<void()> handler) override {
    return inner_.monitorGlobalMouseMoved(std::move(handler));
  }
  platform::Registration monitorLocalKeyDown(
      std::function<platform::KeyDisposition(const platform::KeyEvent&)> handler) override {
    return inner_.monitorLocalKeyDown(std::move(handler));
  }
  platform::Point mouseLocation() const override { return inner_.mouseLocation(); }

 private:
  platform::Events& inner_;
};

}  // namespace roomlattice::tests

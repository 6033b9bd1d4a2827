#pragma once

#include "platform/Application.h"
#include "platform/simulated/VirtualTime.h"

#include <functional>
#include <optional>

namespace roomlattice::platform::simulated {

/// One program's process. Its event loop goes through virtual time from task to task, so what should happen meanwhile
/// is queued before (see SimulatedDesktop::after).
class SimulatedApplication final : public Application {
 public:
  explicit SimulatedApplication(VirtualTime& time) : time_(time) {}

  void setActivationPolicy(ActivationPolicy policy) override { policy_ = policy; }

  /// 0 once the program has ended itself. The loop also ends, with 1, when nothing is left to happen or when the run
  /// limit has passed.
  int run(std::function<void()> didFinishLaunching) override;

  void activateIgnoringOtherApps() override { ++activations_; }
  void terminate() override { terminated_ = true; }

  /// One hour of virtual time at first. Without a limit a repeating timer would keep run going for ever.
  void setRunLimit(Duration limit) { runLimit_ = limit; }

  std::optional<ActivationPolicy> activationPolicy() const { return policy_; }
  int activations() const { return activations_; }
  bool isTerminated() const { return terminated_; }

 private:
  VirtualTime& time_;
  Duration runLimit_ = std::chrono::hours(1);
  std::optional<ActivationPolicy> policy_;
  int activations_ = 0;
  bool terminated_ = false;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/Dispatcher.h"
#include "platform/simulated/VirtualTime.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace roomlattice::platform::simulated {

/// One program's main queue and background queue, on the machine's queue and thread. What is still queued when the
/// program goes never runs.
///
/// A background task runs in one piece when its turn comes, after the main-queue tasks that are due by then. The time
/// it spends blocked is kept on a clock of its own: what it hands to the main queue arrives that much later, so the
/// main queue goes on meanwhile as it would beside another thread.
class SimulatedDispatcher final : public Dispatcher {
 public:
  explicit SimulatedDispatcher(VirtualTime& time);
  ~SimulatedDispatcher() override;

  void async(Task task) override;
  void asyncAfter(Duration delay, Task task) override;
  Registration schedule(Duration delay, Task task) override;
  Registration repeat(Duration first, Duration period, Task task) override;
  void background(Task task) override;

  /// Lets the caller be blocked for `duration`: the background task that runs, or else the main thread.
  void block(Duration duration);

  /// How many tasks are queued for the program: scheduled ones, and one for each repetition.
  std::size_t pendingTasks() const;

  /// Drops all that is queued. Tasks may own objects of other services, so this comes before those end.
  void endTasks();

 private:
  class Pending;
  struct Repetition;

  void arm(const std::shared_ptr<Repetition>& repetition);

  VirtualTime& time_;
  // Shared with registrations, which may outlive the dispatcher.
  std::shared_ptr<Pending> pending_;
  std::optional<Duration> blockedInBackground_;
};

}  // namespace roomlattice::platform::simulated

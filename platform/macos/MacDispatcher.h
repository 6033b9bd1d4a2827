#pragma once

#include "platform/Dispatcher.h"

#include <cstdint>
#include <memory>

namespace roomlattice::platform::macos {

/// Grand Central Dispatch says when there is something to do, and this class what: the system may bring delayed work as
/// much as a tenth of the delay too late, and in another order than it is due. So tasks wait in a queue of their own,
/// each has the system wake the program when it is due, and every wake-up runs the first task in the queue, whoever's
/// wake-up it was. Where the next one is due by then, another wake-up follows at once: its own may be the late one. A
/// task that is cancelled only leaves the queue; the wake-ups too many then find nothing that is due.
class MacDispatcher final : public Dispatcher {
 public:
  MacDispatcher();
  ~MacDispatcher() override;

  void async(Task task) override;
  void asyncAfter(Duration delay, Task task) override;
  Registration schedule(Duration delay, Task task) override;
  Registration repeat(Duration first, Duration period, Task task) override;
  void background(Task task) override;

 private:
  class MainQueue;

  /// Returns what takes the task out of the queue again.
  std::uint64_t post(Duration delay, Task task);

  // The wake-ups on their way may come after this object has gone, and hold it weakly.
  std::shared_ptr<MainQueue> queue_;
};

}  // namespace roomlattice::platform::macos

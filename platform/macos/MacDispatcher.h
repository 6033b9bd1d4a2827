#pragma once

#include "platform/Dispatcher.h"

#include <cstdint>
#include <memory>

namespace roomlattice::platform::macos {

/// Grand Central Dispatch. Its queues wake the program; the order of tasks that are due is this class's own, for
/// delayed work may be grouped and reordered by the system.
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

  static void wake(const std::weak_ptr<MainQueue>& weak, Duration due);
  std::uint64_t postDelayed(Duration delay, Task task);

  // Shared with the wake-ups on their way, which may come after this object has gone.
  std::shared_ptr<MainQueue> queue_;
};

}  // namespace roomlattice::platform::macos

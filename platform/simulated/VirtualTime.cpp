#include "platform/simulated/VirtualTime.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace roomlattice::platform::simulated {

VirtualTime::Token VirtualTime::post(Duration delay, Task task) {
  return queue_.post(now_ + std::max(delay, Duration::zero()), std::move(task));
}

void VirtualTime::remove(Token token) {
  queue_.remove(token);
}

void VirtualTime::advance(Duration duration) {
  // By the clock on the wall: a task may put the machine to sleep.
  const Duration end = wallClock() + duration;
  for (auto due = queue_.nextDue(); due && *due + asleepFor_ <= end && !asleep_; due = queue_.nextDue()) {
    runNext();
  }
  Duration& passing = asleep_ ? asleepFor_ : now_;
  passing += std::max(end - wallClock(), Duration::zero());
}

bool VirtualTime::runNext() {
  const std::optional<Duration> due = queue_.nextDue();
  if (!due || asleep_) {
    return false;
  }
  now_ = std::max(now_, *due);
  const std::optional<Task> task = queue_.takeDue(now_);
  (*task)();
  return true;
}

}  // namespace roomlattice::platform::simulated

#pragma once

#include "support/TaskQueue.h"

#include <cstdint>

namespace roomlattice::platform::simulated {

/// The clock of a simulated desktop and the one queue of all that is going to happen on it, ordered by due time and
/// then by order of posting. Nothing ever sleeps: time passes only where these functions are called.
class VirtualTime {
 public:
  using Task = TaskQueue::Task;
  using Token = std::uint64_t;

  /// Time since the machine started, in which it was awake. All deadlines count in it.
  Duration now() const { return now_; }

  /// now() and the time asleep: what a clock on the wall shows, and what log lines are stamped with.
  Duration wallClock() const { return now_ + asleepFor_; }

  /// Queues a task; a negative delay counts as none. The token identifies it to remove.
  Token post(Duration delay, Task task);
  void remove(Token token);

  /// Lets `duration` pass: runs every task that falls due, with the clock set to when it is due. Tasks may post tasks,
  /// and may let time pass themselves. While the machine sleeps, only the wall clock moves.
  void advance(Duration duration);

  /// Goes on to the next task and runs it; false when there is none or the machine sleeps.
  bool runNext();

  /// Lets `duration` pass while the main thread is kept busy, so that nothing runs; what fell due runs afterwards.
  void block(Duration duration) { now_ += duration; }

  bool isAsleep() const { return asleep_; }
  void setAsleep(bool asleep) { asleep_ = asleep; }

 private:
  TaskQueue queue_;
  Duration now_{0};
  Duration asleepFor_{0};
  bool asleep_ = false;
};

}  // namespace roomlattice::platform::simulated

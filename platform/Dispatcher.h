#pragma once

#include "platform/Registration.h"

#include <chrono>
#include <functional>
#include <utility>

namespace roomlattice::platform {

using Duration = std::chrono::nanoseconds;

/// The main queue, its timers, and the one background queue.
///
/// Main-queue tasks run one at a time, ordered by due time and, when due at the same time, by the order of scheduling.
/// Those that repeat keep a time of their own, in no order with the others.
class Dispatcher {
 public:
  using Task = std::function<void()>;

  virtual ~Dispatcher() = default;

  /// Runs `task` on a later turn of the main queue. May be called from any thread.
  virtual void async(Task task) = 0;

  /// Runs `task` once `delay` has passed since this call. It cannot be cancelled: it holds its owner weakly.
  virtual void asyncAfter(Duration delay, Task task) = 0;

  /// Like asyncAfter, and cancelled with the registration. Once the task has run, the registration means nothing.
  virtual Registration schedule(Duration delay, Task task) = 0;

  /// Runs `task` once `first` has passed and then every `period`, until the registration ends. Where the main thread
  /// was busy for several periods, the missed ones are not made up.
  virtual Registration repeat(Duration first, Duration period, Task task) = 0;

  /// Like repeat, for a task that looks at nothing but what the program knows: as long as nothing happens on the main
  /// thread after a call, each further one would find everything as that one left it, and a backend may leave it out.
  /// Those that come keep to the period.
  virtual Registration repeatWhileActive(Duration first, Duration period, Task task) {
    return repeat(first, period, std::move(task));
  }

  /// Runs `task` off the main thread at user-initiated priority. It may call async and nothing else of this class.
  virtual void background(Task task) = 0;
};

}  // namespace roomlattice::platform

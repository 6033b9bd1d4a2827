#pragma once

#include "platform/Dispatcher.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace roomlattice {

/// Tasks ordered by due time, then by order of posting. It owns no clock: a backend's main queue gives it the time.
class TaskQueue {
 public:
  using Task = platform::Dispatcher::Task;
  /// Time since any fixed moment, the same for every call.
  using Instant = platform::Duration;

  /// Queues a task; the token identifies it to remove.
  std::uint64_t post(Instant due, Task task);

  /// Looks through all tasks; there are never many.
  void remove(std::uint64_t token);

  /// When the first task is due; nothing when there is no task.
  std::optional<Instant> nextDue() const;

  /// Takes the first task out if it is due at `now`. The caller runs it.
  std::optional<Task> takeDue(Instant now);

 private:
  using Order = std::pair<Instant, std::uint64_t>;

  std::map<Order, Task> tasks_;
  std::uint64_t nextToken_ = 0;
};

}  // namespace roomlattice

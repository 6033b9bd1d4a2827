#include "support/TaskQueue.h"

#include <algorithm>

namespace roomlattice {

std::uint64_t TaskQueue::post(Instant due, Task task) {
  const std::uint64_t token = nextToken_++;
  tasks_.emplace(Order{due, token}, std::move(task));
  return token;
}

void TaskQueue::remove(std::uint64_t token) {
  const auto found = std::ranges::find_if(tasks_, [token](const auto& task) { return task.first.second == token; });
  if (found != tasks_.end()) {
    // The task may own what its removal destroys, and that may come back here: take it out first.
    const auto node = tasks_.extract(found);
  }
}

std::optional<TaskQueue::Instant> TaskQueue::nextDue() const {
  return tasks_.empty() ? std::nullopt : std::optional(tasks_.begin()->first.first);
}

std::optional<TaskQueue::Task> TaskQueue::takeDue(Instant now) {
  if (tasks_.empty() || tasks_.begin()->first.first > now) {
    return std::nullopt;
  }
  auto node = tasks_.extract(tasks_.begin());
  return std::move(node.mapped());
}

}  // namespace roomlattice

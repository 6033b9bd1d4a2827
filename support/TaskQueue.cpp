#include "support/TaskQueue.h"

namespace roomlattice {

std::uint64_t TaskQueue::post(Instant due, Task task) {
  const std::uint64_t token = nextToken_++;
  tasks_.emplace(Order{due, token}, std::move(task));
  dueByToken_.emplace(token, due);
  return token;
}

void TaskQueue::remove(std::uint64_t token) {
  const auto found = dueByToken_.find(token);
  if (found != dueByToken_.end()) {
    // The task may own what its removal destroys, and that may come back here: take it out first.
    const auto node = tasks_.extract(Order{found->second, token});
    dueByToken_.erase(found);
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
  dueByToken_.erase(node.key().second);
  return std::move(node.mapped());
}

}  // namespace roomlattice

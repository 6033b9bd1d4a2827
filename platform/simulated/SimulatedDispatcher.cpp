#include "platform/simulated/SimulatedDispatcher.h"

#include "support/Fatal.h"

#include <map>
#include <utility>

namespace roomlattice::platform::simulated {

/// The program's share of the machine's queue.
class SimulatedDispatcher::Pending {
 public:
  explicit Pending(VirtualTime& time) : time_(time) {}

  std::uint64_t post(Duration delay, Task task) {
    const std::uint64_t order = nextOrder_++;
    tokens_[order] = time_.post(delay, [this, order, task = std::move(task)] {
      tokens_.erase(order);
      task();
    });
    return order;
  }

  void remove(std::uint64_t order) {
    if (const auto node = tokens_.extract(order)) {
      time_.remove(node.mapped());
    }
  }

  std::size_t count() const { return tokens_.size(); }

  void removeAll() {
    while (!tokens_.empty()) {
      remove(tokens_.begin()->first);
    }
  }

 private:
  VirtualTime& time_;
  std::map<std::uint64_t, VirtualTime::Token> tokens_;
  std::uint64_t nextOrder_ = 0;
};

struct SimulatedDispatcher::Repetition {
  Duration due;
  Duration period;
  Task task;
  std::uint64_t armed = 0;
};

SimulatedDispatcher::SimulatedDispatcher(VirtualTime& time) : time_(time), pending_(std::make_shared<Pending>(time)) {}

SimulatedDispatcher::~SimulatedDispatcher() {
  endTasks();
}

void SimulatedDispatcher::async(Task task) {
  asyncAfter(Duration::zero(), std::move(task));
}

void SimulatedDispatcher::asyncAfter(Duration delay, Task task) {
  pending_->post(blockedInBackground_.value_or(Duration::zero()) + delay, std::move(task));
}

Registration SimulatedDispatcher::schedule(Duration delay, Task task) {
  const std::uint64_t order = pending_->post(delay, std::move(task));
  return Registration([weak = std::weak_ptr(pending_), order] {
    if (const auto pending = weak.lock()) {
      pending->remove(order);
    }
  });
}

Registration SimulatedDispatcher::repeat(Duration first, Duration period, Task task) {
  if (period <= Duration::zero()) {
    fatal("a repeating task needs a period");
  }
  const auto repetition =
      std::make_shared<Repetition>(Repetition{.due = time_.now() + first, .period = period, .task = std::move(task)});
  arm(repetition);
  return Registration([weak = std::weak_ptr(pending_), repetition] {
    if (const auto pending = weak.lock()) {
      pending->remove(repetition->armed);
    }
  });
}

void SimulatedDispatcher::arm(const std::shared_ptr<Repetition>& repetition) {
  repetition->armed = pending_->post(repetition->due - time_.now(), [this, repetition] {
    while (repetition->due <= time_.now()) {
      repetition->due += repetition->period;
    }
    // Armed before the task runs, so that the task may end the repetition.
    arm(repetition);
    repetition->task();
  });
}

void SimulatedDispatcher::background(Task task) {
  pending_->post(Duration::zero(), [this, task = std::move(task)] {
    blockedInBackground_ = Duration::zero();
    task();
    blockedInBackground_.reset();
  });
}

void SimulatedDispatcher::block(Duration duration) {
  if (blockedInBackground_) {
    *blockedInBackground_ += duration;
  } else {
    time_.block(duration);
  }
}

std::size_t SimulatedDispatcher::pendingTasks() const {
  return pending_->count();
}

void SimulatedDispatcher::endTasks() {
  pending_->removeAll();
}

}  // namespace roomlattice::platform::simulated

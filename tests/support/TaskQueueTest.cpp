#include "support/TaskQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace roomlattice::platform {
namespace {

using namespace std::chrono_literals;

class TaskQueueTest : public ::testing::Test {
 protected:
  TaskQueue::Task recording(int task) {
    return [this, task] { ran_.push_back(task); };
  }

  void runAllDueAt(Duration now) {
    while (const auto task = queue_.takeDue(now)) {
      (*task)();
    }
  }

  TaskQueue queue_;
  std::vector<int> ran_;
};

TEST_F(TaskQueueTest, GivesTasksByDueTimeAndThenByPosting) {
  queue_.post(2s, recording(3));
  queue_.post(1s, recording(1));
  queue_.post(2s, recording(4));
  queue_.post(1s, recording(2));
  runAllDueAt(2s);
  EXPECT_EQ(ran_, (std::vector{1, 2, 3, 4}));
}

TEST_F(TaskQueueTest, KeepsATaskUntilItIsDue) {
  queue_.post(2s, recording(1));
  EXPECT_EQ(queue_.takeDue(2s - 1ns), std::nullopt);
  EXPECT_NE(queue_.takeDue(2s), std::nullopt);
}

TEST_F(TaskQueueTest, TellsWhenTheFirstTaskIsDue) {
  EXPECT_EQ(queue_.nextDue(), std::nullopt);
  queue_.post(3s, recording(1));
  queue_.post(2s, recording(2));
  EXPECT_EQ(queue_.nextDue(), 2s);
  runAllDueAt(2s);
  EXPECT_EQ(queue_.nextDue(), 3s);
}

TEST_F(TaskQueueTest, GivesNoTaskThatWasRemoved) {
  const auto token = queue_.post(1s, recording(1));
  queue_.post(1s, recording(2));
  queue_.remove(token);
  runAllDueAt(1s);
  EXPECT_EQ(ran_, std::vector{2});
  EXPECT_EQ(queue_.nextDue(), std::nullopt);
}

TEST_F(TaskQueueTest, IgnoresTheRemovalOfATaskThatWasTaken) {
  const auto token = queue_.post(1s, recording(1));
  runAllDueAt(1s);
  queue_.post(1s, recording(2));
  queue_.remove(token);
  runAllDueAt(1s);
  EXPECT_EQ(ran_, (std::vector{1, 2}));
}

TEST_F(TaskQueueTest, LetsATaskPostAnotherThatIsDueAtOnce) {
  queue_.post(1s, [this] {
    ran_.push_back(1);
    queue_.post(1s, recording(3));
  });
  queue_.post(1s, recording(2));
  runAllDueAt(1s);
  EXPECT_EQ(ran_, (std::vector{1, 2, 3}));
}

/// On its end it takes another task out of the queue.
struct Remover {
  Remover(TaskQueue& taskQueue, std::uint64_t tokenToRemove) : queue(taskQueue), token(tokenToRemove) {}
  Remover(const Remover&) = delete;
  Remover& operator=(const Remover&) = delete;
  ~Remover() { queue.remove(token); }

  TaskQueue& queue;
  std::uint64_t token;
};

TEST_F(TaskQueueTest, LetsWhatARemovedTaskOwnsRemoveOthers) {
  const auto other = queue_.post(1s, recording(1));
  const auto owner = queue_.post(1s, [remover = std::make_shared<Remover>(queue_, other)] {});
  queue_.remove(owner);
  EXPECT_EQ(queue_.nextDue(), std::nullopt);
}

}  // namespace
}  // namespace roomlattice::platform

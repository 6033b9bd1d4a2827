#include "platform/linux/system/LinuxDispatcher.h"

#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <thread>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::linux::LinuxDispatcher;
using ::testing::ElementsAre;

class LinuxDispatcherTest : public ::testing::Test {
 protected:
  ToolkitApplication<QCoreApplication> qt_;
  std::optional<LinuxDispatcher> dispatcher_{std::in_place};
};

TEST_F(LinuxDispatcherTest, RunsTasksByDueTimeAndThenInOrder) {
  std::vector<int> order;
  dispatcher_->asyncAfter(300ms, [&] { order.push_back(4); });
  dispatcher_->asyncAfter(10ms, [&] { order.push_back(3); });
  dispatcher_->async([&] { order.push_back(1); });
  dispatcher_->async([&] { order.push_back(2); });
  EXPECT_TRUE(order.empty());
  EXPECT_TRUE(waitFor([&] { return order.size() == 4; }));
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

TEST_F(LinuxDispatcherTest, RunsNoTaskBeforeItsTime) {
  const auto start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point ran;
  dispatcher_->asyncAfter(20ms, [&] { ran = std::chrono::steady_clock::now(); });
  EXPECT_TRUE(waitFor([&] { return ran != std::chrono::steady_clock::time_point(); }));
  EXPECT_GE(ran - start, 20ms);
}

TEST_F(LinuxDispatcherTest, TakesTasksFromAnyThread) {
  std::atomic<int> ran = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int task = 0; task < 1000; ++task) {
        dispatcher_->async([&, poster = QThread::currentThread()] {
          ran += QThread::currentThread() == qt_.get().thread() && poster != qt_.get().thread() ? 1 : 0;
        });
      }
    });
  }
  EXPECT_TRUE(waitFor([&] { return ran == 4000; }));
  for (std::thread& thread : threads) {
    thread.join();
  }
}

TEST_F(LinuxDispatcherTest, ForgetsACancelledTask) {
  bool ran = false;
  Registration task = dispatcher_->schedule(1ms, [&] { ran = true; });
  task.cancel();
  bool later = false;
  dispatcher_->asyncAfter(5ms, [&] { later = true; });
  EXPECT_TRUE(waitFor([&] { return later; }));
  EXPECT_FALSE(ran);
}

TEST_F(LinuxDispatcherTest, ForgetsATaskThatAnEarlierOneOfTheSameTurnCancels) {
  bool ran = false;
  bool later = false;
  Registration task;
  dispatcher_->async([&] { task.cancel(); });
  task = dispatcher_->schedule(0ms, [&] { ran = true; });
  dispatcher_->asyncAfter(5ms, [&] { later = true; });
  EXPECT_TRUE(waitFor([&] { return later; }));
  EXPECT_FALSE(ran);
}

TEST_F(LinuxDispatcherTest, RepeatsUntilCancelledFromWithin) {
  int ran = 0;
  Registration repetition;
  repetition = dispatcher_->repeat(1ms, 1ms, [&] {
    if (++ran == 3) {
      repetition.cancel();
    }
  });
  bool later = false;
  EXPECT_TRUE(waitFor([&] { return ran == 3; }));
  dispatcher_->asyncAfter(5ms, [&] { later = true; });
  EXPECT_TRUE(waitFor([&] { return later; }));
  EXPECT_EQ(ran, 3);
}

TEST_F(LinuxDispatcherTest, DoesNotMakeUpForPeriodsThatWereMissed) {
  const auto start = std::chrono::steady_clock::now();
  std::vector<std::chrono::steady_clock::time_point> times;
  const Registration repetition = dispatcher_->repeat(1ms, 50ms, [&] {
    times.push_back(std::chrono::steady_clock::now());
    if (times.size() == 1) {
      const auto end = times.front() + 170ms;
      while (std::chrono::steady_clock::now() < end) {
      }
    }
  });
  EXPECT_TRUE(waitFor([&] { return times.size() == 3; }));
  // Three were missed: one after that, and the next in a period of its own.
  EXPECT_GE(times[2] - start, 1ms + 4 * 50ms);
}

TEST_F(LinuxDispatcherTest, LeavesEventsTheirTurnWhenATaskPostsItselfForEver) {
  bool go = true;
  std::function<void()> task = [&] {
    if (go) {
      dispatcher_->async(task);
    }
  };
  dispatcher_->async(task);
  bool timer = false;
  bool event = false;
  QTimer::singleShot(5, [&] { timer = true; });
  QMetaObject::invokeMethod(
      &qt_.get(), [&] { event = true; }, Qt::QueuedConnection);
  EXPECT_TRUE(waitFor([&] { return timer && event; }));
  go = false;
}

TEST_F(LinuxDispatcherTest, ServesAnEventLoopThatATaskOpens) {
  bool inner = false;
  bool done = false;
  dispatcher_->async([&] {
    QEventLoop loop;
    dispatcher_->asyncAfter(1ms, [&] {
      inner = true;
      loop.quit();
    });
    loop.exec();
    done = true;
  });
  EXPECT_TRUE(waitFor([&] { return done; }));
  EXPECT_TRUE(inner);
}

TEST_F(LinuxDispatcherTest, RunsBackgroundTasksOneAfterAnotherOffTheMainThread) {
  std::vector<int> order;
  bool offMain = true;
  std::atomic<bool> done = false;
  for (int i = 1; i <= 3; ++i) {
    dispatcher_->background([&, i] {
      order.push_back(i);
      offMain = offMain && QThread::currentThread() != qt_.get().thread();
    });
  }
  dispatcher_->background([&] { dispatcher_->async([&] { done = true; }); });
  EXPECT_TRUE(waitFor([&] { return done.load(); }));
  EXPECT_THAT(order, ElementsAre(1, 2, 3));
  EXPECT_TRUE(offMain);
}

TEST_F(LinuxDispatcherTest, EndsWithTasksStillQueuedWithoutRunningThem) {
  bool ran = false;
  auto owned = std::make_shared<int>(0);
  const std::weak_ptr<int> weak = owned;
  Registration task = dispatcher_->schedule(0ms, [&ran, owned] { ran = true; });
  const Registration repetition = dispatcher_->repeat(0ms, 1ms, [&ran, owned] { ran = true; });
  const Registration beat = dispatcher_->repeatWhileActive(0ms, 1ms, [&ran, owned] { ran = true; });
  owned.reset();
  dispatcher_.reset();
  EXPECT_TRUE(weak.expired());
  task.cancel();
  QCoreApplication::processEvents();
  EXPECT_FALSE(ran);
}

TEST_F(LinuxDispatcherTest, EndsWhenTheBackgroundTaskThatRunsHasEnded) {
  std::atomic<bool> started = false;
  std::atomic<bool> end = false;
  std::atomic<bool> ended = false;
  dispatcher_->background([&] {
    started = true;
    while (!end) {
      std::this_thread::yield();
    }
    dispatcher_->async([] {});
    ended = true;
  });
  ASSERT_TRUE(waitFor([&] { return started.load(); }));
  std::thread other([&] { end = true; });
  dispatcher_.reset();
  EXPECT_TRUE(ended);
  other.join();
}

}  // namespace
}  // namespace roomlattice::tests

#include "platform/simulated/SimulatedDispatcher.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Duration;
using platform::Registration;

class SimulatedDispatcherTest : public ::testing::Test {
 protected:
  platform::Dispatcher::Task noting(const std::string& what) {
    return [this, what] { notes_.push_back(what); };
  }
  platform::Dispatcher::Task stamping() {
    return [this] { stamps_.push_back(time_.now()); };
  }

  platform::simulated::VirtualTime time_;
  std::optional<platform::simulated::SimulatedDispatcher> dispatcher_{std::in_place, time_};
  std::vector<std::string> notes_;
  std::vector<Duration> stamps_;
};

TEST_F(SimulatedDispatcherTest, RunsTasksLaterInTheOrderTheyAreDueAndWerePosted) {
  dispatcher_->asyncAfter(1s, noting("late"));
  dispatcher_->async(noting("first"));
  dispatcher_->async(noting("second"));
  EXPECT_TRUE(notes_.empty());
  time_.advance(1s);
  EXPECT_EQ(notes_, (std::vector<std::string>{"first", "second", "late"}));
}

TEST_F(SimulatedDispatcherTest, RunsAScheduledTaskAtItsTime) {
  const Registration work = dispatcher_->schedule(500ms, stamping());
  time_.advance(2s);
  EXPECT_EQ(stamps_, std::vector<Duration>{500ms});
  EXPECT_TRUE(work);
}

TEST_F(SimulatedDispatcherTest, NeverRunsAScheduledTaskThatWasCancelled) {
  Registration work = dispatcher_->schedule(500ms, stamping());
  time_.advance(499ms);
  work.cancel();
  time_.advance(2s);
  EXPECT_TRUE(stamps_.empty());
}

TEST_F(SimulatedDispatcherTest, LetsGoOfWhatACancelledTaskOwned) {
  auto owned = std::make_shared<int>(0);
  const std::weak_ptr<int> watched = owned;
  Registration work = dispatcher_->schedule(1s, [owned = std::move(owned)] {});
  EXPECT_FALSE(watched.expired());
  work.cancel();
  EXPECT_TRUE(watched.expired());
}

TEST_F(SimulatedDispatcherTest, LetsATaskCancelItself) {
  Registration work;
  work = dispatcher_->schedule(1s, [&] {
    work.cancel();
    notes_.emplace_back("ran");
  });
  time_.advance(2s);
  EXPECT_EQ(notes_, std::vector<std::string>{"ran"});
}

TEST_F(SimulatedDispatcherTest, RepeatsUntilTheRegistrationEnds) {
  Registration timer = dispatcher_->repeat(500ms, 1s, stamping());
  time_.advance(2500ms);
  timer.cancel();
  time_.advance(10s);
  EXPECT_EQ(stamps_, (std::vector<Duration>{500ms, 1500ms, 2500ms}));
}

TEST_F(SimulatedDispatcherTest, LetsARepeatedTaskEndItsRepetition) {
  Registration timer;
  timer = dispatcher_->repeat(1s, 1s, [&] {
    stamps_.push_back(time_.now());
    if (stamps_.size() == 2) {
      timer.cancel();
    }
  });
  time_.advance(10s);
  EXPECT_EQ(stamps_, (std::vector<Duration>{1s, 2s}));
}

TEST_F(SimulatedDispatcherTest, DoesNotMakeUpForPeriodsTheThreadWasBusy) {
  const Registration timer = dispatcher_->repeat(1s, 1s, stamping());
  dispatcher_->asyncAfter(1500ms, [this] { dispatcher_->block(3s); });
  time_.advance(7s);
  EXPECT_EQ(stamps_, (std::vector<Duration>{1s, 4500ms, 5s, 6s, 7s}));
}

TEST_F(SimulatedDispatcherTest, RunsBackgroundWorkAfterWhatIsDueAlready) {
  dispatcher_->background([this] {
    notes_.emplace_back("background");
    dispatcher_->async(noting("result"));
  });
  dispatcher_->async(noting("main"));
  time_.advance(0s);
  EXPECT_EQ(notes_, (std::vector<std::string>{"background", "main", "result"}));
}

TEST_F(SimulatedDispatcherTest, KeepsTheMainQueueGoingWhileBackgroundWorkIsBlocked) {
  dispatcher_->background([this] {
    dispatcher_->block(2s);
    dispatcher_->async(stamping());
  });
  const Registration timer = dispatcher_->schedule(1s, stamping());
  time_.advance(3s);
  EXPECT_EQ(stamps_, (std::vector<Duration>{1s, 2s}));
}

TEST_F(SimulatedDispatcherTest, BlocksTheMainQueueFromTheMainThread) {
  dispatcher_->async([this] { dispatcher_->block(2s); });
  const Registration timer = dispatcher_->schedule(1s, stamping());
  time_.advance(3s);
  EXPECT_EQ(stamps_, std::vector<Duration>{2s});
}

TEST_F(SimulatedDispatcherTest, RunsNothingOnceItHasEnded) {
  dispatcher_->async(noting("main"));
  dispatcher_->background(noting("background"));
  const Registration timer = dispatcher_->repeat(1s, 1s, noting("timer"));
  dispatcher_.reset();
  time_.advance(5s);
  EXPECT_TRUE(notes_.empty());
}

TEST_F(SimulatedDispatcherTest, MayEndBeforeItsRegistrations) {
  Registration work = dispatcher_->schedule(1s, noting("main"));
  Registration timer = dispatcher_->repeat(1s, 1s, noting("timer"));
  dispatcher_.reset();
  work.cancel();
  timer.cancel();
  EXPECT_TRUE(notes_.empty());
}

TEST_F(SimulatedDispatcherTest, LetsGoOfTasksThatOwnOtherTasks) {
  auto inner = std::make_shared<Registration>(dispatcher_->schedule(2s, noting("inner")));
  dispatcher_->asyncAfter(1s, [inner] {});
  inner.reset();
  dispatcher_.reset();
  time_.advance(5s);
  EXPECT_TRUE(notes_.empty());
}

using SimulatedDispatcherDeathTest = SimulatedDispatcherTest;

TEST_F(SimulatedDispatcherDeathTest, RefusesToRepeatWithoutAPeriod) {
  EXPECT_DEATH(static_cast<void>(dispatcher_->repeat(1s, 0s, [] {})), "period");
}

}  // namespace
}  // namespace roomlattice::tests

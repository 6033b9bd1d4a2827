#include "platform/simulated/VirtualTime.h"

#include <gtest/gtest.h>

#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Duration;

class VirtualTimeTest : public ::testing::Test {
 protected:
  TaskQueue::Task stamping() {
    return [this] { stamps_.push_back(time_.now()); };
  }

  platform::simulated::VirtualTime time_;
  std::vector<Duration> stamps_;
};

TEST_F(VirtualTimeTest, SetsTheClockToEachTaskAndThenToTheEnd) {
  time_.post(2s, stamping());
  time_.post(1s, stamping());
  time_.advance(3s);
  EXPECT_EQ(stamps_, (std::vector<Duration>{1s, 2s}));
  EXPECT_EQ(time_.now(), 3s);
}

TEST_F(VirtualTimeTest, RunsWhatIsDueAtTheEndButNothingLater) {
  time_.post(1s, stamping());
  time_.post(1s + 1ns, stamping());
  time_.advance(1s);
  EXPECT_EQ(stamps_, std::vector<Duration>{1s});
}

TEST_F(VirtualTimeTest, RunsTasksPostedByTasksWithinTheSameAdvance) {
  time_.post(1s, [this] { time_.post(1s, stamping()); });
  time_.advance(2s);
  EXPECT_EQ(stamps_, std::vector<Duration>{2s});
}

TEST_F(VirtualTimeTest, RunsNothingWithoutBeingAdvanced) {
  time_.post(0s, stamping());
  EXPECT_TRUE(stamps_.empty());
  time_.advance(0s);
  EXPECT_EQ(stamps_, std::vector<Duration>{0s});
}

TEST_F(VirtualTimeTest, CountsANegativeDelayAsNone) {
  time_.advance(1s);
  time_.post(-1s, stamping());
  time_.advance(0s);
  EXPECT_EQ(stamps_, std::vector<Duration>{1s});
}

TEST_F(VirtualTimeTest, NeverRunsARemovedTask) {
  time_.remove(time_.post(1s, stamping()));
  time_.advance(2s);
  EXPECT_TRUE(stamps_.empty());
}

TEST_F(VirtualTimeTest, GoesToTheNextTaskOnRequest) {
  time_.post(5s, stamping());
  EXPECT_TRUE(time_.runNext());
  EXPECT_EQ(time_.now(), 5s);
  EXPECT_FALSE(time_.runNext());
}

TEST_F(VirtualTimeTest, RunsWhatFellDueWhileTheThreadWasBusyAfterwards) {
  time_.post(1s, [this] { time_.block(3s); });
  time_.post(2s, stamping());
  time_.advance(1s);
  EXPECT_EQ(time_.now(), 4s);
  EXPECT_TRUE(stamps_.empty());
  time_.advance(0s);
  EXPECT_EQ(stamps_, std::vector<Duration>{4s});
}

TEST_F(VirtualTimeTest, LetsATaskLetTimePassItself) {
  time_.post(1s, [this] { time_.advance(4s); });
  time_.post(2s, stamping());
  time_.advance(3s);
  EXPECT_EQ(stamps_, std::vector<Duration>{2s});
  EXPECT_EQ(time_.now(), 5s);
}

TEST_F(VirtualTimeTest, StandsStillWhileAsleepExceptOnTheWallClock) {
  time_.post(1s, stamping());
  time_.setAsleep(true);
  time_.advance(10s);
  EXPECT_FALSE(time_.runNext());
  EXPECT_TRUE(stamps_.empty());
  EXPECT_EQ(time_.now(), 0s);
  EXPECT_EQ(time_.wallClock(), 10s);
  time_.setAsleep(false);
  time_.advance(1s);
  EXPECT_EQ(stamps_, std::vector<Duration>{1s});
  EXPECT_EQ(time_.wallClock(), 11s);
}

TEST_F(VirtualTimeTest, StandsStillFromWhenATaskPutsTheMachineToSleep) {
  time_.post(1s, [this] { time_.setAsleep(true); });
  time_.post(2s, stamping());
  time_.advance(10s);
  EXPECT_TRUE(stamps_.empty());
  EXPECT_EQ(time_.now(), 1s);
  EXPECT_EQ(time_.wallClock(), 10s);
  time_.setAsleep(false);
  time_.advance(1s);
  EXPECT_EQ(stamps_, std::vector<Duration>{2s});
  EXPECT_EQ(time_.wallClock(), 11s);
}

TEST_F(VirtualTimeTest, LetsATaskLetTimePassInItsSleep) {
  time_.post(1s, [this] {
    time_.setAsleep(true);
    time_.advance(4s);
    time_.setAsleep(false);
  });
  time_.post(2s, stamping());
  time_.advance(10s);
  EXPECT_EQ(stamps_, std::vector<Duration>{2s});
  EXPECT_EQ(time_.now(), 6s);
  EXPECT_EQ(time_.wallClock(), 10s);
}

}  // namespace
}  // namespace roomlattice::tests

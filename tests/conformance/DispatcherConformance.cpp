#include "tests/conformance/ConformanceTest.h"

#include <atomic>
#include <string>
#include <thread>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Dispatcher;
using platform::Registration;

class DispatcherConformance : public ConformanceTest {
 protected:
  Dispatcher& dispatcher() { return platform().dispatcher(); }
};

TEST_F(DispatcherConformance, RunsNoTaskWithinTheCallThatSchedulesIt) {
  bool ran = false;
  dispatcher().async([&] { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_TRUE(runUntil([&] { return ran; }));
}

TEST_F(DispatcherConformance, OrdersByDueTimeThenByScheduling) {
  std::string order;
  dispatcher().asyncAfter(400ms, [&] { order += "d"; });
  dispatcher().asyncAfter(40ms, [&] { order += "c"; });
  dispatcher().async([&] { order += "a"; });
  dispatcher().async([&] { order += "b"; });
  EXPECT_TRUE(runUntil([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "abcd");
}

TEST_F(DispatcherConformance, RunsATaskPostedByATaskLater) {
  std::string order;
  dispatcher().async([&] {
    dispatcher().async([&] { order += "b"; });
    order += "a";
  });
  EXPECT_TRUE(runUntil([&] { return order.size() == 2; }));
  EXPECT_EQ(order, "ab");
}

TEST_F(DispatcherConformance, CancelsScheduledWork) {
  bool ran = false;
  Registration work = dispatcher().schedule(10ms, [&] { ran = true; });
  work.cancel();
  runFor(100ms);
  EXPECT_FALSE(ran);
}

TEST_F(DispatcherConformance, RepeatsUntilCancelledFromWithin) {
  int ticks = 0;
  Registration timer;
  timer = dispatcher().repeat(5ms, 5ms, [&] {
    if (++ticks == 3) {
      timer.cancel();
    }
  });
  EXPECT_TRUE(runUntil([&] { return ticks == 3; }));
  runFor(100ms);
  EXPECT_EQ(ticks, 3);
}

TEST_F(DispatcherConformance, RepeatsWhileSomethingHappensUntilCancelledFromWithin) {
  int ticks = 0;
  Registration timer;
  timer = dispatcher().repeatWhileActive(5ms, 5ms, [&] {
    if (++ticks == 3) {
      timer.cancel();
    }
    dispatcher().async([] {});
  });
  EXPECT_TRUE(runUntil([&] { return ticks == 3; }));
  runFor(100ms);
  EXPECT_EQ(ticks, 3);
}

TEST_F(DispatcherConformance, ComesBackFromTheBackground) {
  const std::thread::id main = std::this_thread::get_id();
  bool cameBack = false;
  dispatcher().background([&] { dispatcher().async([&] { cameBack = std::this_thread::get_id() == main; }); });
  EXPECT_TRUE(runUntil([&] { return cameBack; }));
}

}  // namespace
}  // namespace roomlattice::tests

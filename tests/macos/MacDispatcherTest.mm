#import "platform/macos/MacDispatcher.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>

#include "tests/macos/MainLoop.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;
using tests::runFor;
using tests::runUntil;

TEST(MacDispatcherTest, NeverRunsATaskBeforeTheCallReturns) {
  MacDispatcher dispatcher;
  bool ran = false;
  dispatcher.async([&] { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_TRUE(runUntil([&] { return ran; }));
}

TEST(MacDispatcherTest, RunsTasksInOrderOfDueTimeThenOfScheduling) {
  MacDispatcher dispatcher;
  std::string order;
  dispatcher.asyncAfter(400ms, [&] { order += "d"; });
  dispatcher.asyncAfter(100ms, [&] { order += "c"; });
  dispatcher.async([&] { order += "a"; });
  dispatcher.async([&] { order += "b"; });
  EXPECT_TRUE(runUntil([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "abcd");
}

TEST(MacDispatcherTest, RunsEveryTaskThatIsDueWhenTheMainThreadWasBusy) {
  MacDispatcher dispatcher;
  std::string order;
  const auto start = std::chrono::steady_clock::now();
  dispatcher.asyncAfter(300ms, [&] { order += "c"; });
  dispatcher.asyncAfter(100ms, [&] { order += "a"; });
  dispatcher.asyncAfter(200ms, [&] { order += "b"; });
  while (std::chrono::steady_clock::now() < start + 400ms) {
  }
  EXPECT_TRUE(runUntil([&] { return order.size() == 3; }));
  EXPECT_EQ(order, "abc");
}

TEST(MacDispatcherTest, DropsACancelledTaskAndWhatItHolds) {
  MacDispatcher dispatcher;
  const auto held = std::make_shared<int>(0);
  Registration work = dispatcher.schedule(1ms, [held] { *held = 1; });
  work.cancel();
  EXPECT_EQ(held.use_count(), 1);
  runFor(50ms);
  EXPECT_EQ(*held, 0);
}

TEST(MacDispatcherTest, MayScheduleFromATaskThatACancellationDestroys) {
  MacDispatcher dispatcher;
  bool ran = false;
  const std::shared_ptr<void> guard(nullptr, [&](void*) { dispatcher.async([&] { ran = true; }); });
  Registration work = dispatcher.schedule(1h, [guard = guard] {});
  const_cast<std::shared_ptr<void>&>(guard).reset();
  work.cancel();
  EXPECT_TRUE(runUntil([&] { return ran; }));
}

TEST(MacDispatcherTest, RepeatsUntilTheRegistrationEnds) {
  MacDispatcher dispatcher;
  int ticks = 0;
  Registration timer;
  timer = dispatcher.repeat(1ms, 1ms, [&] {
    if (++ticks == 3) {
      timer.cancel();
    }
  });
  EXPECT_TRUE(runUntil([&] { return ticks == 3; }));
  runFor(50ms);
  EXPECT_EQ(ticks, 3);
}

TEST(MacDispatcherTest, RunsBackgroundWorkOffTheMainThread) {
  MacDispatcher dispatcher;
  std::atomic<int> onMainThread = -1;
  bool handedBack = false;
  dispatcher.background([&] {
    onMainThread = [NSThread isMainThread];
    dispatcher.async([&] { handedBack = [NSThread isMainThread]; });
  });
  EXPECT_TRUE(runUntil([&] { return handedBack; }));
  EXPECT_EQ(onMainThread, 0);
}

TEST(MacDispatcherTest, RunsNothingAfterItHasGone) {
  auto dispatcher = std::make_unique<MacDispatcher>();
  bool ran = false;
  Registration work = dispatcher->schedule(1ms, [&] { ran = true; });
  dispatcher.reset();
  work.cancel();
  runFor(50ms);
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace roomlattice::platform::macos

#import "platform/macos/MacDispatcher.h"

#import <dispatch/dispatch.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/DispatchRecord.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;
using tests::runUntil;

TEST(MacDispatcherOnGnustepTest, MeasuresDelaysByTheMachinesUptime) {
  MacDispatcher dispatcher;
  std::string order;
  dispatcher.asyncAfter(10min, [&] { order += "a"; });
  gnustep::letUptimePass(20min);
  dispatcher.async([&] { order += "b"; });
  EXPECT_TRUE(runUntil([&] { return order.size() == 2; }));
  EXPECT_EQ(order, "ab");
}

TEST(MacDispatcherOnGnustepTest, LetsNoTaskWaitForTheLateWakeUpOfAnother) {
  MacDispatcher dispatcher;
  std::string order;
  dispatcher.asyncAfter(10min, [&] { order += "a"; });
  dispatcher.asyncAfter(15min, [&] { order += "b"; });
  gnustep::letUptimePass(20min);
  dispatcher.async([&] { order += "c"; });
  EXPECT_TRUE(runUntil([&] { return order.size() == 3; }));
  EXPECT_EQ(order, "abc");
}

TEST(MacDispatcherOnGnustepTest, RunsOneTaskForEachWakeUp) {
  MacDispatcher dispatcher;
  std::string order;
  std::string* const said = &order;
  dispatcher.asyncAfter(10min, [said] {
    dispatch_async(dispatch_get_main_queue(), ^{
      *said += "x";
    });
    *said += "a";
  });
  dispatcher.asyncAfter(15min, [&] { order += "b"; });
  gnustep::letUptimePass(20min);
  dispatcher.async([&] { order += "c"; });
  EXPECT_TRUE(runUntil([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "axbc");
}

TEST(MacDispatcherOnGnustepTest, RepeatsWithoutLeeway) {
  MacDispatcher dispatcher;
  const Registration timer = dispatcher.repeat(500ms, 500ms, [] {});
  const std::vector<gnustep::TimerRecord> expected{{.interval = 500'000'000, .leeway = 0}};
  EXPECT_EQ(gnustep::runningTimers(), expected);
}

TEST(MacDispatcherOnGnustepTest, RunsBackgroundWorkAtUserInitiatedPriority) {
  MacDispatcher dispatcher;
  bool handedBack = false;
  dispatcher.background([&] { dispatcher.async([&] { handedBack = true; }); });
  EXPECT_TRUE(runUntil([&] { return handedBack; }));
  EXPECT_EQ(gnustep::lastGlobalQueue(), QOS_CLASS_USER_INITIATED);
}

}  // namespace
}  // namespace roomlattice::platform::macos

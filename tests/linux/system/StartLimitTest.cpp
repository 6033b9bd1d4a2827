#include "platform/linux/system/StartLimit.h"
#include "tests/linux/session/TextFile.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::StartLimit;

[[noreturn]] void waitForEver() {
  for (;;) {
    pause();
  }
}

TEST(StartLimitTest, EndsAProcessThatWaitsForSomething) {
  const auto start = [] {
    const StartLimit limit(std::chrono::milliseconds(20), "nobody answers");
    waitForEver();
  };
  EXPECT_EXIT(start(), ::testing::ExitedWithCode(1), "^roomlattice: nobody answers\n$");
}

TEST(StartLimitTest, EndsAProcessThatWasStartedWithAllSignalsBlocked) {
  const auto start = [] {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
    const StartLimit limit(std::chrono::milliseconds(20), "nobody answers");
    waitForEver();
  };
  EXPECT_EXIT(start(), ::testing::ExitedWithCode(1), "nobody answers");
}

TEST(StartLimitTest, IsOverWithTheObject) {
  const auto timers = [] { return textOf("/proc/self/timers"); };
  const std::string before = timers();
  {
    const StartLimit limit(std::chrono::hours(1), "nobody answers");
    EXPECT_NE(timers(), before);
  }
  EXPECT_EQ(timers(), before);
}

}  // namespace
}  // namespace roomlattice::tests

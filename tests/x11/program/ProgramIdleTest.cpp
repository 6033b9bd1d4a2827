#include "tests/linux/session/TextFile.h"
#include "tests/x11/session/ProgramSession.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Three of the periods in which labels are primed.
constexpr std::chrono::milliseconds longRest = 1500ms;

/// The system calls of a process while strace is attached to it.
class SystemCalls {
 public:
  explicit SystemCalls(pid_t process)
      : trace_({"strace", "-f", "-p", std::to_string(process), "-o", report_.string()}) {}

  /// False where processes may not be traced here.
  bool isAttached() {
    return waitFor(
               [this] { return trace_.errorOutput().find("attached") != std::string::npos || !trace_.isRunning(); }) &&
           trace_.isRunning();
  }

  /// For how long there has been none.
  Clock::duration rest() {
    if (std::string now = report(); now != last_) {
      last_ = std::move(now);
      lastChange_ = Clock::now();
    }
    return Clock::now() - lastChange_;
  }

  std::string report() const { return textOf(report_); }

 private:
  TemporaryFolder folder_;
  std::filesystem::path report_ = folder_.path() / "calls";
  ChildProcess trace_;
  std::string last_;
  Clock::time_point lastChange_ = Clock::now();
};

class ProgramIdleTest : public ::testing::Test {
 protected:
  ProgramSession user_;
};

TEST_F(ProgramIdleTest, SleepsWhileNothingHappens) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  SystemCalls calls(user_.program().process().id());
  if (!calls.isAttached()) {
    GTEST_SKIP() << "processes may not be traced";
  }
  // The label of the desktop in front may still be fading, and memory be put away.
  EXPECT_TRUE(waitFor([&] { return calls.rest() >= longRest; })) << calls.report();
}

}  // namespace
}  // namespace roomlattice::tests

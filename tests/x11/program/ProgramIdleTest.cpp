#include "tests/linux/session/TextFile.h"
#include "tests/x11/session/ProgramSession.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

// Two seconds and more of what the program does twice a second, as a wait may be told in two lines.
constexpr std::ptrdiff_t longRest = 10;

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

  /// How many lines of the report there are since the last call that did not wait.
  std::ptrdiff_t waits() const {
    const std::vector<std::string> all = lines();
    const auto isOther = [](const std::string& line) { return line.find("poll") == std::string::npos; };
    return std::find_if(all.rbegin(), all.rend(), isOther) - all.rbegin();
  }

  std::string report() const { return textOf(report_); }

 private:
  std::vector<std::string> lines() const {
    std::istringstream text(report());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line);
    }
    return lines;
  }

  TemporaryFolder folder_;
  std::filesystem::path report_ = folder_.path() / "calls";
  ChildProcess trace_;
};

class ProgramIdleTest : public ::testing::Test {
 protected:
  ProgramSession user_;
};

TEST_F(ProgramIdleTest, MakesNoSystemCallButToWaitWhileNothingHappens) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  SystemCalls calls(user_.program().process().id());
  if (!calls.isAttached()) {
    GTEST_SKIP() << "processes may not be traced";
  }
  // The label of the desktop in front may still be fading, and memory be put away.
  EXPECT_TRUE(waitFor([&] { return calls.waits() >= longRest; })) << calls.report();
}

}  // namespace
}  // namespace roomlattice::tests

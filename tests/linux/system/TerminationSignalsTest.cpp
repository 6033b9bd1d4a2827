#include "platform/linux/system/TerminationSignals.h"

#include "tests/linux/session/Wait.h"

#include <array>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::TerminationSignals;

bool isAsleep(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(status, line);
  return line.find(") S ") != std::string::npos;
}

TEST(TerminationSignalsTest, AreNoticedWhenTheyComeDuringAWait) {
  std::array<int, 2> ends{-1, -1};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t process = fork();
  if (process == 0) {
    const TerminationSignals signals;
    const bool isTold = write(ends[1], "", 1) == 1;
    _exit(isTold && signals.waitFor(100s) ? 0 : 1);
  }
  char ready = 0;
  ASSERT_EQ(read(ends[0], &ready, 1), 1);
  EXPECT_TRUE(waitFor([&] { return isAsleep(process); }));
  kill(process, SIGTERM);
  int status = -1;
  waitpid(process, &status, 0);
  EXPECT_EQ(status, 0);
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace roomlattice::tests

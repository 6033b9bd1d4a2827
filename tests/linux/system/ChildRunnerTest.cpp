#include "platform/linux/system/ChildRunner.h"

#include "tests/linux/session/Wait.h"

#include <array>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::ChildResult;
using platform::linux::ChildRunner;

ChildResult resultOf(const std::string& script, const ChildRunner::Options& options) {
  return std::get<ChildResult>(ChildRunner().run("/bin/sh", {"-c", script}, options));
}

TEST(ChildRunnerTest, TellsWhetherTheChildSucceeded) {
  EXPECT_TRUE(resultOf("exit 0", {}).succeeded);
  EXPECT_FALSE(resultOf("exit 3", {}).succeeded);
  EXPECT_FALSE(resultOf("kill -9 $$", {}).succeeded);
}

TEST(ChildRunnerTest, LeavesErrorsOutWhereTheyAreNotWanted) {
  const std::string script = "echo one; echo two >&2; echo three";
  EXPECT_EQ(resultOf(script, {.errorOutput = ChildRunner::ErrorOutput::Discarded}).bytes, "one\nthree\n");
  EXPECT_EQ(resultOf(script, {}).bytes, "one\ntwo\nthree\n");
}

TEST(ChildRunnerTest, EndsAChildThatTakesTooLong) {
  const ChildResult result = resultOf("echo early; exec sleep 1000", {.limit = 200ms});
  EXPECT_FALSE(result.succeeded);
}

TEST(ChildRunnerTest, EndsAChildThatTakesTooLongAfterItsOutput) {
  const ChildResult result = resultOf("echo early; exec >&- 2>&-; sleep 20", {.limit = 200ms});
  EXPECT_FALSE(result.succeeded);
}

TEST(ChildRunnerTest, WaitsForTheExitAfterTheOutput) {
  const ChildResult result = resultOf("echo early; exec >&- 2>&-; sleep 0.1", {.limit = 100s});
  EXPECT_TRUE(result.succeeded);
  EXPECT_EQ(result.bytes, "early\n");
}

TEST(ChildRunnerTest, LeavesAChildThatIsInTimeAlone) {
  const ChildResult result = resultOf("echo early", {.limit = 100s});
  EXPECT_TRUE(result.succeeded);
  EXPECT_EQ(result.bytes, "early\n");
}

bool isRunning(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(status, line);
  return !line.empty() && line.find(") Z ") == std::string::npos;
}

TEST(ChildRunnerTest, EndsWhatAChildHasStartedWithIt) {
  std::string line;
  // On a busy machine it may take more than that until there is anything to end.
  for (auto limit = 200ms; line.empty(); limit *= 2) {
    line = resultOf("sleep 1000 & echo $!; wait", {.limit = limit}).bytes;
  }
  const pid_t grandchild = std::stoi(line);
  EXPECT_TRUE(waitFor([&] { return !isRunning(grandchild); }));
}

TEST(ChildRunnerTest, LetsNoChildOutliveTheProcess) {
  std::array<int, 2> ends{-1, -1};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t process = fork();
  if (process == 0) {
    ChildRunner().run("/bin/sh", {"-c", "echo $$ >&" + std::to_string(ends[1]) + "; exec sleep 1000"}, {});
    _exit(0);
  }
  std::array<char, 32> text{};
  ASSERT_GT(read(ends[0], text.data(), text.size() - 1), 0);
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
  EXPECT_TRUE(waitFor([&] { return !isRunning(std::stoi(text.data())); }));
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace roomlattice::tests

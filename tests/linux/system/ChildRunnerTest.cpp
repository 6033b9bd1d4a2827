#include "platform/linux/system/ChildRunner.h"

#include <gtest/gtest.h>

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

TEST(ChildRunnerTest, LeavesAChildThatIsInTimeAlone) {
  const ChildResult result = resultOf("echo early", {.limit = 100s});
  EXPECT_TRUE(result.succeeded);
  EXPECT_EQ(result.bytes, "early\n");
}

}  // namespace
}  // namespace roomlattice::tests

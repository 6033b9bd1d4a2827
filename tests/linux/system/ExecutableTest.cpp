#include "platform/linux/system/Executable.h"

#include "tests/linux/session/Environment.h"

#include <fstream>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::pathOfExecutable;

class ExecutableTest : public ::testing::Test {
 protected:
  std::filesystem::path pathBehind(const std::filesystem::path& target) const {
    const std::filesystem::path link = folder_.path() / "exe";
    std::filesystem::create_symlink(target, link);
    return pathOfExecutable(link);
  }

  TemporaryFolder folder_;
};

TEST_F(ExecutableTest, IsTheRunningProgram) {
  EXPECT_TRUE(std::filesystem::equivalent(pathOfExecutable(), "/proc/self/exe"));
}

TEST_F(ExecutableTest, IsFoundWhereItWasBeforeItWasReplaced) {
  EXPECT_EQ(pathBehind("/opt/program (deleted)"), "/opt/program");
}

TEST_F(ExecutableTest, MayHaveANameThatLooksLikeTheMark) {
  const std::filesystem::path odd = folder_.path() / "program (deleted)";
  std::ofstream{odd};
  EXPECT_EQ(pathBehind(odd), odd);
}

TEST_F(ExecutableTest, IsUnknownWithoutALink) {
  EXPECT_EQ(pathOfExecutable(folder_.path() / "exe"), "");
}

}  // namespace
}  // namespace roomlattice::tests

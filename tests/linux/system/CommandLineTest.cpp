#include "platform/linux/system/CommandLine.h"

#include "platform/linux/system/Autostart.h"
#include "tests/linux/session/Environment.h"
#include "tests/linux/session/TextFile.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::answerCommandLine;
using platform::linux::Autostart;
using platform::linux::Start;
using platform::linux::startOf;

class CommandLineTest : public ::testing::Test {
 protected:
  CommandLineTest() { environment_.set("XDG_CONFIG_HOME", folder_.path().string()); }

  /// Nothing when the program is to run.
  static std::optional<int> statusOf(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "roomlattice");
    arguments.push_back(nullptr);
    const auto status = answerCommandLine(static_cast<int>(arguments.size()) - 1, arguments.data());
    return status ? std::optional(status->code) : std::nullopt;
  }

  Environment environment_;
  TemporaryFolder folder_;
};

TEST_F(CommandLineTest, SwitchesTheAutostartOnAndOff) {
  const Autostart autostart(*Autostart::standardPath());
  EXPECT_EQ(statusOf({"--autostart", "on"}), 0);
  EXPECT_EQ(autostart.state(), Autostart::State::On);
  EXPECT_EQ(statusOf({"--autostart", "off"}), 0);
  EXPECT_EQ(autostart.state(), Autostart::State::Off);
}

TEST_F(CommandLineTest, SaysWhereTheAutostartCannotBeWritten) {
  writeText(folder_.path() / "autostart", "not a folder");
  EXPECT_EQ(statusOf({"--autostart", "on"}), 1);
}

TEST_F(CommandLineTest, RefusesAnyOtherStateOfTheAutostart) {
  EXPECT_EQ(statusOf({"--autostart"}), 2);
  EXPECT_EQ(statusOf({"--autostart", "yes"}), 2);
  EXPECT_FALSE(std::filesystem::exists(*Autostart::standardPath()));
}

TEST_F(CommandLineTest, TellsAStartAtLoginFromAnother) {
  const std::vector<const char*> byUser{"roomlattice"};
  const std::vector<const char*> atLogin{"roomlattice", "--at-login"};
  EXPECT_EQ(startOf(1, byUser.data()), Start::ByUser);
  EXPECT_EQ(startOf(2, atLogin.data()), Start::AtLogin);
  EXPECT_EQ(statusOf({"--at-login"}), std::nullopt);
  EXPECT_EQ(statusOf({}), std::nullopt);
  EXPECT_EQ(statusOf({"--at-login", "--unknown"}), 2);
}

}  // namespace
}  // namespace roomlattice::tests

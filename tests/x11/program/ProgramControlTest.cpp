#include "tests/x11/session/ProgramSession.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The program in a session, and what its client makes of it.
class ProgramControlTest : public ::testing::Test {
 protected:
  /// Its exit status; its output comes in `output_`.
  int ctl(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ROOMLATTICECTL_PROGRAM);
    ChildProcess process(arguments);
    const int status = process.waitForExitStatus().value_or(-1);
    output_ = process.output() + process.errorOutput();
    return status;
  }

  bool isUpAndToured() {
    return user_.startAndTour() && waitFor([this] { return ctl({"list"}) == 0; });
  }

  bool isOnDesktop(int desktop) {
    return waitFor([&] { return user_.isOnDesktop(desktop); });
  }

  Program& program() { return user_.program(); }

  ProgramSession user_;
  std::string output_;
};

TEST_F(ProgramControlTest, SwitchesDesktops) {
  ASSERT_TRUE(isUpAndToured()) << program().process().errorOutput();
  EXPECT_EQ(ctl({"switch", "4"}), 0);
  EXPECT_TRUE(isOnDesktop(3));
  EXPECT_EQ(ctl({"previous"}), 0);
  EXPECT_EQ(ctl({"previous"}), 0);
  EXPECT_TRUE(isOnDesktop(1));
  EXPECT_EQ(ctl({"switch", "1"}), 0);
  EXPECT_EQ(ctl({"switch", "1"}), 0);
  EXPECT_TRUE(isOnDesktop(0));
  EXPECT_EQ(ctl({"previous"}), 1);
  EXPECT_EQ(ctl({"switch", "Desktop"}), 1);
  EXPECT_THAT(output_, HasSubstr("1 Desktop 1, 2 Desktop 2, 3 Desktop 3, 4 Desktop 4"));
}

TEST_F(ProgramControlTest, RenamesDesktops) {
  ASSERT_TRUE(isUpAndToured()) << program().process().errorOutput();
  EXPECT_EQ(ctl({"rename", "3", "Größe"}), 0);
  EXPECT_EQ(ctl({"switch", "grö"}), 0);
  EXPECT_TRUE(isOnDesktop(2));
  EXPECT_TRUE(waitFor([&] {
    return ctl({"current", "--format={number} {name} {uuid}"}) == 0 && output_ == "3 Größe desktop-3\n";
  }));
  EXPECT_EQ(ctl({"rename", ""}), 0);
  EXPECT_EQ(ctl({"list"}), 0);
  EXPECT_THAT(output_, HasSubstr("* 3  Desktop 3"));
}

TEST_F(ProgramControlTest, QuitsInGoodOrder) {
  ASSERT_TRUE(isUpAndToured()) << program().process().errorOutput();
  EXPECT_EQ(ctl({"quit"}), 0);
  EXPECT_EQ(program().exitStatus(), 0);
  EXPECT_THAT(program().complaints(), IsEmpty());
  EXPECT_EQ(ctl({"list"}), 3);
}

TEST_F(ProgramControlTest, ShowsTheMenuForASecondStart) {
  ASSERT_TRUE(isUpAndToured()) << program().process().errorOutput();
  ASSERT_FALSE(user_.isMenuOpen());
  Program second;
  EXPECT_EQ(second.exitStatus(), 0);
  EXPECT_THAT(second.complaints(), IsEmpty());
  EXPECT_TRUE(waitFor([this] { return user_.isMenuOpen(); }));
  user_.clickAt(user_.menuRow(1));
  EXPECT_TRUE(isOnDesktop(1));
}

TEST_F(ProgramControlTest, ShowsThePreferences) {
  ASSERT_TRUE(isUpAndToured()) << program().process().errorOutput();
  EXPECT_EQ(ctl({"preferences"}), 0);
  EXPECT_TRUE(waitFor([this] { return user_.windows().preferences().has_value(); }));
}

}  // namespace
}  // namespace roomlattice::tests

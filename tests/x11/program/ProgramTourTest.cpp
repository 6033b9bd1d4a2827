#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

constexpr int touredDesktops = 3;
constexpr int home = 1;

/// A tour that begins on the second of three desktops, each of which has a window of another application.
class ProgramTourTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  void SetUp() override {
    for (int desktop = 0; desktop < touredDesktops; ++desktop) {
      ASSERT_TRUE(user_.switchTo(desktop));
      windows_.push_back(std::make_unique<PlainWindow>(QRect(100, 550, 300, 150), Qt::green));
    }
    ASSERT_TRUE(user_.switchTo(home));
    ASSERT_TRUE(waitFor([this] { return atHome().hasFocus(); }));
  }

  PlainWindow& atHome() { return *windows_.at(home); }

  bool tourIsUnderWay() {
    return waitFor([this] { return user_.session.currentDesktop() != home; });
  }

  bool hasEnded() { return user_.program().process().errorOutput().find("tour end") != std::string::npos; }

  ProgramSession user_{{.windowManager = GetParam(), .desktops = touredDesktops}};
  std::vector<std::unique_ptr<PlainWindow>> windows_;
};

TEST_P(ProgramTourTest, KeepsKeysFromWindowsOnTheWay) {
  ASSERT_TRUE(user_.start());
  ASSERT_TRUE(user_.program().hasLogged("tour start"));
  ASSERT_TRUE(tourIsUnderWay());
  while (!hasEnded()) {
    user_.typeText("a");
  }
  EXPECT_EQ(windows_.front()->keys(), 0);
  EXPECT_EQ(windows_.back()->keys(), 0);
}

TEST_P(ProgramTourTest, LeavesTheKeyboardWithTheWindowThatHadIt) {
  ASSERT_TRUE(user_.startAndTour());
  EXPECT_TRUE(waitFor([this] { return atHome().hasFocus(); }));
  EXPECT_TRUE(waitFor([this] {
    user_.typeText("a");
    return atHome().keys() > 0;
  }));
}

TEST_P(ProgramTourTest, TakesTheUserBackWhenTheProgramIsEndedOnTheWay) {
  ASSERT_TRUE(user_.start());
  ASSERT_TRUE(tourIsUnderWay());
  user_.program().process().signal(SIGTERM);
  EXPECT_EQ(user_.program().exitStatus(), 0);
  EXPECT_TRUE(waitFor([this] { return user_.isOnDesktop(home); }));
  EXPECT_TRUE(waitFor([this] { return atHome().hasFocus(); }));
}

INSTANTIATE_TEST_SUITE_P(OnMost, ProgramTourTest,
                         ::testing::Values(WindowManagerKind::Openbox, WindowManagerKind::Xfwm4,
                                           WindowManagerKind::KWin, WindowManagerKind::Fluxbox,
                                           WindowManagerKind::Metacity, WindowManagerKind::Marco),
                         ::testing::PrintToStringParamName());

TEST(ProgramTourOfManyDesktopsTest, EndsWhereItBegan) {
  ProgramSession user({.desktops = 50});
  ASSERT_TRUE(user.switchTo(20));
  ASSERT_TRUE(user.startAndTour()) << user.program().process().errorOutput();
  // Also where the machine is too busy for so many in the time that a tour may take.
  EXPECT_TRUE(waitFor([&] { return user.isOnDesktop(20); }));
}

}  // namespace
}  // namespace roomlattice::tests

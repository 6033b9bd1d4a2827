#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"

#include <QColor>
#include <QRect>
#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace roomlattice::tests {
namespace {

class ProgramSwitchTest : public ::testing::TestWithParam<Desktop> {
 protected:
  /// The labels and overlays that can be seen now, where opacity is obeyed.
  std::vector<WindowProbe> seen() { return user_.windows().seen(leastOpacity); }

  /// How many labels can be seen now. One look, as a label is there for half a second only.
  std::size_t seenLabels() { return user_.windows().seen(leastOpacity, windows_).size(); }

  /// Switches, and waits until a label was seen there and has gone. Gives how many were seen at once, apart from those
  /// of the desktop before: some tell of a switch a moment before they take its windows from the screen.
  std::size_t labelsAfterSwitchTo(int desktop) {
    user_.askForDesktop(desktop);
    std::optional<std::size_t> fewest;
    EXPECT_TRUE(waitFor([&] {
      const std::size_t now = seenLabels();
      if (now > 0) {
        fewest = std::min(fewest.value_or(now), now);
      }
      return fewest && now == 0;
    })) << fewest.value_or(0)
        << " labels, and they stay";
    return fewest.value_or(0);
  }

  static constexpr double leastOpacity = 0.05;

  ProgramSession user_{{.windowManager = GetParam().windowManager}, GetParam().compositing};
  // All that the program has.
  std::vector<xcb_window_t> windows_;
};

TEST_P(ProgramSwitchTest, ShowsOneLabelAndLeavesTheUserThereWithTheKeyboard) {
  ASSERT_TRUE(user_.switchTo(2));
  PlainWindow window({100, 550, 300, 150}, Qt::green);
  ASSERT_TRUE(user_.switchTo(0));
  ASSERT_TRUE(user_.start() && user_.program().hasLogged("tour end"));
  // Once the tour's overlay has gone, too.
  ASSERT_TRUE(waitFor([this] { return seen().empty(); }));
  // Labels are got ready twice a second, all at once, and none is shown before.
  ASSERT_TRUE(waitFor([this] {
    EXPECT_TRUE(user_.switchTo(1));
    user_.askForDesktop(0);
    return waitFor([this] { return !seen().empty(); }, std::chrono::seconds(1));
  }));
  ASSERT_TRUE(waitFor([this] { return seen().empty(); }));

  windows_ = user_.windows().all();
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(labelsAfterSwitchTo(2), 1U);
    EXPECT_TRUE(user_.isOnDesktop(2));
    EXPECT_TRUE(waitFor([&] { return window.hasFocus(); }));
    EXPECT_EQ(labelsAfterSwitchTo(3), 1U);
    EXPECT_TRUE(user_.isOnDesktop(3));
  }
}

INSTANTIATE_TEST_SUITE_P(OnMost, ProgramSwitchTest,
                         ::testing::Values(Desktop{WindowManagerKind::Openbox}, Desktop{WindowManagerKind::Xfwm4},
                                           Desktop{WindowManagerKind::Fluxbox}, Desktop{WindowManagerKind::Metacity},
                                           Desktop{WindowManagerKind::Marco}, Desktop{WindowManagerKind::Bspwm},
                                           Desktop{WindowManagerKind::Bspwm, Compositing::Picom}),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests

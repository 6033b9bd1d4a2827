#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"

#include <QColor>
#include <QRect>
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace roomlattice::tests {
namespace {

class ProgramSwitchTest : public ::testing::TestWithParam<Desktop> {
 protected:
  /// The labels and overlays that can be seen now, where opacity is obeyed.
  std::vector<WindowProbe> seen() {
    std::vector<WindowProbe> windows = user_.windows().labels();
    const std::vector<WindowProbe> everywhere = user_.windows().overlaysEverywhere();
    windows.insert(windows.end(), everywhere.begin(), everywhere.end());
    std::erase_if(windows, [](const WindowProbe& window) { return !window.isViewable() || opacityOf(window) < 0.05; });
    return windows;
  }

  /// Switches, and waits until a label was seen there and has gone. Gives how many were seen at once.
  std::size_t labelsAfterSwitchTo(int desktop) {
    // A label is there for less than a second, so that nothing may come between.
    user_.askForDesktop(desktop);
    std::size_t most = 0;
    EXPECT_TRUE(waitFor([&] {
      // Twice: metacity tells of a switch a moment before it takes the windows of the desktop before from the screen.
      const std::size_t before = seen().size();
      const std::size_t now = seen().size();
      most = std::max(most, std::min(before, now));
      return most > 0 && now == 0;
    })) << most
        << " labels, and they stay";
    return most;
  }

  ProgramSession user_{{.windowManager = GetParam().windowManager}, GetParam().compositing};
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

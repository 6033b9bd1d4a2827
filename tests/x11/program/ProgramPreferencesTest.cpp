#include "tests/x11/session/EveryWindowManager.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"
#include "tests/x11/session/ScreenImage.h"

#include <gtest/gtest.h>
#include <sstream>

namespace roomlattice::tests {
namespace {

using platform::Value;

constexpr int rows = 2;
constexpr QPoint besideThePanel(20, 760);
// Of "Show desktop name in menu bar", from the top left of the window's contents.
constexpr QPoint nameCheckbox(42, 114);

class ProgramPreferencesUnderTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  ProgramPreferencesUnderTest()
      : user_({.windowManager = GetParam(), .desktops = rows},
              GetParam() == WindowManagerKind::KWin ? Compositing::None : Compositing::Picom) {}

  bool openByShortcut() {
    const bool opened = user_.openMenu();
    user_.pressKeys({"ctrl+comma"});
    return opened && user_.menuCloses() && isInFront();
  }

  bool openByMouse() {
    const bool opened = user_.openMenu();
    user_.clickAt(user_.preferencesCommand(rows));
    return opened && user_.menuCloses() && isInFront();
  }

  /// Comes to be seen, with the keyboard, and without anything above it.
  bool isInFront() {
    return waitFor([this] {
      const std::optional<WindowProbe> window = user_.windows().preferences();
      return window && focusedWindow(user_.connection()) == window->id() &&
             !similar(screenColor(user_.connection(), window->geometry()->center()), Qt::green);
    });
  }

  /// For the reader of a failure.
  std::string situation() {
    const std::optional<WindowProbe> window = user_.windows().preferences();
    std::ostringstream text;
    text << "menu open: " << user_.isMenuOpen() << ", desktop: " << user_.session.currentDesktop().value_or(-1);
    text << std::hex << ", keyboard at: " << focusedWindow(user_.connection()) << ", preferences: ";
    if (window) {
      text << window->id() << " on desktop " << window->desktop().value_or(99);
    }
    return text.str();
  }

  bool settingBecomes(const std::string& key, const Value& value) {
    return waitFor([&] { return Program::setting(key) == value; });
  }

  bool statusItemBecomesAsWideAs(int width) {
    return waitFor([&] {
      const std::optional<WindowProbe> item = user_.windows().statusItem();
      return item && item->geometry() && item->geometry()->width() == width;
    });
  }

  bool labelIsAloneOn(std::uint32_t desktop) {
    return waitFor([&] { return user_.windows().labelsOn(desktop).size() == 1; });
  }

  ProgramSession user_;
};

TEST_P(ProgramPreferencesUnderTest, IsOneWindowThatComesToTheUserWhereverHeIs) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  ASSERT_TRUE(openByShortcut()) << situation();
  const xcb_window_t window = user_.windows().preferences()->id();
  ASSERT_TRUE(user_.switchTo(1));
  ASSERT_TRUE(openByMouse()) << situation();
  EXPECT_EQ(user_.windows().preferences()->id(), window);
  EXPECT_TRUE(user_.isOnDesktop(1));
  EXPECT_TRUE(waitFor([&] { return user_.windows().preferences()->desktop() == 1U; }));

  PlainWindow application({300, 100, 700, 650}, Qt::green);
  for (int time = 0; time < 4; ++time) {
    ASSERT_TRUE(openByShortcut()) << situation();
  }
  EXPECT_EQ(user_.windows().preferences()->id(), window);
  // Other windows of the program stay where they are.
  EXPECT_TRUE(labelIsAloneOn(0));

  user_.pressKeys({"ctrl+w"});
  ASSERT_TRUE(waitFor([&] { return !user_.windows().preferences(); }));
  EXPECT_TRUE(user_.program().process().isRunning());
  ASSERT_TRUE(openByShortcut()) << situation();
  EXPECT_EQ(user_.windows().preferences()->desktop(), 1U);
  ASSERT_TRUE(user_.openMenu());
  user_.pressKeys({"ctrl+q"});
  EXPECT_EQ(user_.program().exitStatus(), 0);
}

TEST_P(ProgramPreferencesUnderTest, WritesWhatIsChosenByKeyboardAndMouseAndTheStatusItemFollows) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  ASSERT_TRUE(openByShortcut()) << situation();
  user_.pressKeys({"ctrl+Tab", "ctrl+Tab", "Tab", "Down"});
  EXPECT_TRUE(settingBecomes("MenuBarWidthMode", "maxTitleLength"));
  EXPECT_TRUE(statusItemBecomesAsWideAs(140));
  user_.pressKeys({"Tab", "space"});
  EXPECT_TRUE(settingBecomes("ShowSpaceNameInMenuBar", false));
  EXPECT_TRUE(statusItemBecomesAsWideAs(24));

  user_.session.setDesktopCount(1);
  ASSERT_TRUE(waitFor([&] { return user_.windows().labels().size() == 1; }));
  user_.clickAt(user_.windows().preferences()->geometry()->topLeft() + nameCheckbox);
  EXPECT_TRUE(settingBecomes("ShowSpaceNameInMenuBar", true));
  EXPECT_TRUE(statusItemBecomesAsWideAs(140));
}

TEST_P(ProgramPreferencesUnderTest, HasItsKeysAgainWhenTheMenuClosesWhileANameIsEdited) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  ASSERT_TRUE(openByShortcut()) << situation();
  ASSERT_TRUE(user_.openMenu());
  user_.editMenuRow(1);
  user_.typeText("lost");
  user_.clickAt(besideThePanel);
  ASSERT_TRUE(user_.menuCloses());
  ASSERT_TRUE(isInFront()) << situation();
  user_.pressKeys({"Return", "KP_Enter", "ctrl+Tab", "ctrl+Tab", "Tab", "Down"});
  EXPECT_TRUE(settingBecomes("MenuBarWidthMode", "maxTitleLength"));
  EXPECT_EQ(Program::setting("SpaceNames"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramPreferencesUnderTest, everyWindowManager(),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests

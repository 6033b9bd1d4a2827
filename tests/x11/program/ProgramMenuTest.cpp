#include "tests/x11/session/EveryWindowManager.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"
#include "tests/x11/session/ScreenImage.h"

#include <functional>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Value;
using ::testing::IsEmpty;

constexpr QPoint elsewhere(300, 700);

class ProgramMenuUnderTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  std::string uuid(int desktop) const {
    return (GetParam() == WindowManagerKind::KWin ? "test-desktop-" : "desktop-") + std::to_string(desktop + 1);
  }

  bool namesBecome(const Value::Dictionary& names) {
    return waitFor([&] { return Program::setting("SpaceNames") == Value(names); });
  }

  /// Opens the menu anew until the program knows how many desktops there are now.
  bool openMenuOfHeight(const std::function<bool(int)>& isRight) {
    return waitFor([&] {
      const bool open = user_.openMenu() && isRight(user_.windows().popup()->geometry()->height());
      return open || (user_.pressKeys({"Escape"}), user_.menuCloses(), false);
    });
  }

  int statusItemWidth() {
    const std::optional<WindowProbe> item = user_.windows().statusItem();
    return item ? item->geometry().value_or(QRect()).width() : 0;
  }

  ProgramSession user_{{.windowManager = GetParam(), .desktops = 2}};
};

TEST_P(ProgramMenuUnderTest, RenamesDesktopsWithTypedKeysAndSwitchesByAClick) {
  // A layout with an umlaut of its own: keys that a tool maps in passing may come before they are known.
  user_.session.run({"setxkbmap", "de"});
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  PlainWindow application({100, 400, 300, 150}, Qt::green);
  const int widthBefore = statusItemWidth();
  ASSERT_TRUE(user_.openMenu());
  user_.editMenuRow(1);
  user_.typeText("Büro & Post");
  user_.pressKeys({"Return"});
  EXPECT_TRUE(namesBecome({{uuid(1), "Büro & Post"}}));
  EXPECT_TRUE(user_.isMenuOpen());

  user_.editMenuRow(0);
  user_.typeText("Alles Weitere");
  user_.pressKeys({"BackSpace", "BackSpace", "KP_Enter"});
  const Value::Dictionary names{{uuid(0), "Alles Weite"}, {uuid(1), "Büro & Post"}};
  EXPECT_TRUE(namesBecome(names));
  EXPECT_TRUE(waitFor([&] { return statusItemWidth() > widthBefore; }));

  user_.editMenuRow(1);
  user_.typeText("nicht so");
  user_.pressKeys({"Escape"});
  EXPECT_TRUE(user_.isMenuOpen());

  user_.editMenuRow(1);
  user_.typeText("verloren");
  user_.clickAt(elsewhere);
  EXPECT_TRUE(user_.menuCloses());
  EXPECT_TRUE(waitFor([&] { return application.hasFocus(); }));

  ASSERT_TRUE(user_.openMenu());
  user_.clickAt(user_.menuRow(1));
  EXPECT_TRUE(user_.menuCloses());
  EXPECT_TRUE(waitFor([&] { return user_.isOnDesktop(1); }));
  EXPECT_TRUE(waitFor([&] { return similar(user_.statusItemColor().value_or(Qt::black), defaultColorOf(1)); }));
  EXPECT_TRUE(namesBecome(names));

  ASSERT_TRUE(user_.openMenu());
  user_.clickAt(user_.quitCommand());
  EXPECT_EQ(user_.program().exitStatus(), 0);
  EXPECT_THAT(user_.program().complaints(), IsEmpty());
}

TEST_P(ProgramMenuUnderTest, ReachesTheLastOfTwentyDesktopsAndOutlivesTheirEnd) {
  ASSERT_TRUE(user_.startAndTour(R"({"InstantMenuSwitch": true})")) << user_.program().process().errorOutput();
  user_.session.setDesktopCount(20);
  ASSERT_TRUE(user_.program().knowsDesktop(GetParam() == WindowManagerKind::KWin ? uuid(1) : uuid(19)));
  ASSERT_TRUE(openMenuOfHeight([](int height) { return height > 20 * 24; }));
  user_.clickAt(user_.menuRow(19));
  EXPECT_TRUE(user_.menuCloses());
  EXPECT_TRUE(waitFor([&] { return user_.isOnDesktop(19); }));

  ASSERT_TRUE(user_.openMenu());
  user_.editMenuRow(15);
  user_.session.setDesktopCount(3);
  EXPECT_TRUE(waitFor([&] { return user_.isOnDesktop(2); }));
  user_.typeText("vanished");
  user_.pressKeys({"Return"});
  EXPECT_TRUE(user_.isMenuOpen());
  user_.clickAt(user_.menuRow(10));
  EXPECT_TRUE(user_.menuCloses());

  ASSERT_TRUE(openMenuOfHeight([](int height) { return height < 6 * 24; }));
  user_.clickAt(user_.menuRow(0));
  EXPECT_TRUE(waitFor([&] { return user_.isOnDesktop(0); }));
  EXPECT_TRUE(user_.program().process().isRunning());
}

TEST_P(ProgramMenuUnderTest, LetsThePointerComeStraightToThePencilOfAnotherRow) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  ASSERT_TRUE(user_.openMenu());
  user_.movePointerTo(user_.menuRow(0));
  user_.clickAt(user_.pencilOfMenuRow(1));
  user_.typeText("Mail");
  user_.pressKeys({"Return"});
  EXPECT_TRUE(namesBecome({{uuid(1), "Mail"}}));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramMenuUnderTest, everyWindowManager(), ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests

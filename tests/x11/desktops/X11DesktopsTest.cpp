#include "platform/x11/desktops/X11Desktops.h"

#include "tests/x11/desktops/DesktopsFixture.h"
#include "tests/x11/session/PlainWindow.h"

#include <csignal>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Direction;
using platform::x11::X11Connection;
using ::testing::ElementsAre;

class X11DesktopsTest : public OnEveryWindowManager {
 protected:
  FollowedDesktops followed_{{.windowManager = GetParam(), .desktops = 3}};
};

TEST_P(X11DesktopsTest, AreReadAtOnce) {
  EXPECT_EQ(followed_.count(), 3);
  EXPECT_EQ(followed_.current(), followed_.session.currentDesktop());
}

TEST_P(X11DesktopsTest, HaveIdentifiersThatAreSmallEnoughAndNotZero) {
  for (const platform::x11::Desktop& desktop : followed_.desktops.list().desktops) {
    EXPECT_GT(static_cast<std::int64_t>(desktop.id), 0);
    EXPECT_FALSE(desktop.uuid.empty());
  }
}

TEST_P(X11DesktopsTest, AreTheSameAfterARestartOfTheProgram) {
  const platform::x11::DesktopList before = followed_.desktops.list();
  const platform::x11::X11Desktops again(followed_.qt.connection(), followed_.bus, followed_.windowManager,
                                         followed_.center);
  EXPECT_EQ(again.list(), before);
}

TEST(X11DesktopsOnWaylandTest, AreOnTheFirstWhileNobodyTellsTheCurrentOne) {
  FollowedDesktops followed({.windowManager = WindowManagerKind::Openbox, .desktops = 3});
  followed.session.run({"wmctrl", "-s", "2"});
  ASSERT_TRUE(waitFor([&] { return followed.current() == 2; }));
  followed.session.run({"xprop", "-root", "-remove", "_NET_CURRENT_DESKTOP"});
  EXPECT_TRUE(waitFor([&] { return followed.current() == 0; }));
}

TEST_P(X11DesktopsTest, FollowASwitchMadeByOthers) {
  followed_.session.run({"wmctrl", "-s", "2"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
  EXPECT_EQ(followed_.posts, 1);
}

TEST(X11DesktopsOfEwmhTest, AreOneQuestionToTheServerWithEachSwitch) {
  FollowedDesktops followed({.windowManager = WindowManagerKind::Openbox, .desktops = 3});
  const auto requests = [&followed] { return xcb_no_operation(followed.qt.connection().raw()).sequence; };
  // With this one, all has come that the window manager tells in its beginning.
  followed.session.run({"wmctrl", "-s", "1"});
  ASSERT_TRUE(waitFor([&] { return followed.current() == 1; }));
  const unsigned before = requests();
  followed.session.run({"wmctrl", "-s", "2"});
  ASSERT_TRUE(waitFor([&] { return followed.current() == 2; }));
  EXPECT_EQ(requests() - before, 2U);
}

TEST_P(X11DesktopsTest, AddUpQuickSteps) {
  followed_.desktops.step(Direction::Right);
  followed_.desktops.step(Direction::Right);
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
  // KWin tells of a switch over D-Bus, and then by its root properties.
  EXPECT_TRUE(waitFor([this] { return followed_.session.currentDesktop() == 2; }));
}

TEST_P(X11DesktopsTest, AddUpQuickStepsThereAndBack) {
  for (const auto direction :
       {Direction::Right, Direction::Left, Direction::Right, Direction::Right, Direction::Left}) {
    followed_.desktops.step(direction);
  }
  followed_.session.run({"wmctrl", "-n", "4"});  // comes after the steps, as messages are served in order
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 4 && followed_.current() == 1; }));
}

TEST_P(X11DesktopsTest, EndAtBothEnds) {
  followed_.desktops.step(Direction::Left);
  for (int step = 0; step < 7; ++step) {
    followed_.desktops.step(Direction::Right);
  }
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
  followed_.desktops.step(Direction::Right);
  followed_.desktops.step(Direction::Left);
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 1; }));
}

TEST_P(X11DesktopsTest, FollowDesktopsThatComeAndGo) {
  const std::vector<std::string> before = followed_.uuids();
  followed_.session.run({"wmctrl", "-n", "5"});
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 5; }));
  followed_.session.run({"wmctrl", "-n", "2"});
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 2; }));
  EXPECT_EQ(followed_.uuids()[0], before[0]);
  EXPECT_EQ(followed_.uuids()[1], before[1]);
}

TEST_P(X11DesktopsTest, StayKnownWhileNoWindowManagerRuns) {
  platform::x11::DesktopList before = followed_.desktops.list();
  before.names.clear();
  followed_.session.stopWindowManager();
  ASSERT_TRUE(waitFor([this] { return !followed_.windowManager.current(); }));
  EXPECT_EQ(followed_.desktops.list(), before);
  followed_.desktops.step(Direction::Right);
  EXPECT_EQ(followed_.desktops.list(), before);
}

TEST_P(X11DesktopsTest, AreFollowedAgainWhenTheWindowManagerWasReplaced) {
  followed_.session.startWindowManager(GetParam());
  ASSERT_TRUE(waitFor([this] { return followed_.windowManager.current().has_value(); }));
  followed_.session.run({"wmctrl", "-s", "1"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 1; }));
  EXPECT_EQ(followed_.count(), 3);
}

TEST_P(X11DesktopsTest, AreFollowedAgainWhenTheWindowManagerWasKilledAndStartedAnew) {
  followed_.session.stopWindowManager();
  followed_.session.startWindowManager(GetParam());
  ASSERT_TRUE(waitFor([this] { return followed_.windowManager.current().has_value(); }));
  followed_.session.run({"wmctrl", "-s", "2"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
}

TEST_P(X11DesktopsTest, ArePostedOnlyWhenTheyDiffer) {
  followed_.session.run({"wmctrl", "-s", "0"});
  followed_.session.run(
      {"xprop", "-root", "-f", "_NET_NUMBER_OF_DESKTOPS", "32c", "-set", "_NET_NUMBER_OF_DESKTOPS", "3"});
  followed_.session.run({"wmctrl", "-s", "1"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 1; }));
  EXPECT_EQ(followed_.posts, 1);
}

INSTANTIATE_TEST_SUITE_P(OnEvery, X11DesktopsTest, everyWindowManager(), ::testing::PrintToStringParamName());

TEST(X11DesktopsOfAnotherWindowManagerTest, AreIdentifiedItsOwnWay) {
  FollowedDesktops followed({.windowManager = WindowManagerKind::Openbox, .desktops = 2});
  EXPECT_THAT(followed.uuids(), ElementsAre("desktop-1", "desktop-2"));
  followed.session.startWindowManager(WindowManagerKind::KWin);
  EXPECT_TRUE(waitFor([&] {
    return followed.uuids() == std::vector<std::string>{"test-desktop-1", "test-desktop-2"};
  }));
  followed.session.startWindowManager(WindowManagerKind::Xfwm4);
  EXPECT_TRUE(waitFor([&] { return followed.uuids() == std::vector<std::string>{"desktop-1", "desktop-2"}; }));
}

TEST(X11DesktopsOfI3Test, KeepTheirNamesWhenTheirPositionsShift) {
  FollowedDesktops followed({.windowManager = WindowManagerKind::I3});
  followed.session.run({"i3-msg", "workspace", "mail"});
  const PlainWindow mail({0, 0, 100, 100}, Qt::red);
  followed.session.run({"i3-msg", "workspace", "play"});
  ASSERT_TRUE(waitFor([&] { return followed.count() == 2 && followed.current() == 1; }));
  EXPECT_THAT(followed.uuids(), ElementsAre("workspace-mail", "workspace-play"));
  const platform::SpaceID playID = followed.desktops.list().desktops[1].id;

  const PlainWindow play({0, 0, 100, 100}, Qt::red);
  followed.session.run({"i3-msg", "workspace", "1: first"});
  EXPECT_TRUE(waitFor([&] { return followed.count() == 3; }));
  EXPECT_THAT(followed.uuids(), ElementsAre("workspace-1: first", "workspace-mail", "workspace-play"));
  EXPECT_EQ(followed.desktops.list().desktops[2].id, playID);
}

TEST(X11DesktopsOfOpenboxTest, AreFollowedWhenItRestartsItself) {
  FollowedDesktops followed({.windowManager = WindowManagerKind::Openbox, .desktops = 3});
  bool gone = false;
  const platform::Registration observation = followed.windowManager.observe([&] { gone = true; });
  followed.session.run({"openbox", "--restart"});
  ASSERT_TRUE(waitFor([&] { return gone && followed.windowManager.current(); }));
  // It drops what it is asked for while it starts.
  EXPECT_TRUE(waitFor([&] {
    followed.session.run({"wmctrl", "-s", "1"});
    return followed.current() == 1;
  }));
}

// Whatever stands in the root window's properties.
class X11DesktopsGarbledTest : public ::testing::Test {
 protected:
  void setProperty(const char* name, const char* format, const char* value) {
    followed_.session.run({"xprop", "-root", "-f", name, format, "-set", name, value});
  }

  FollowedDesktops followed_{{.windowManager = WindowManagerKind::Openbox, .desktops = 3}};
};

TEST_F(X11DesktopsGarbledTest, KeepTheLastGoodList) {
  for (const auto& [format, value] : {std::pair("32c", "0"), std::pair("32c", "4000000000"), std::pair("8s", "three"),
                                      std::pair("16c", "7"), std::pair("32a", "STRING")}) {
    setProperty("_NET_NUMBER_OF_DESKTOPS", format, value);
    followed_.session.run({"wmctrl", "-s", "1"});
    followed_.session.run({"wmctrl", "-s", "0"});
    EXPECT_EQ(followed_.count(), 3) << format << value;
  }
}

TEST_F(X11DesktopsGarbledTest, HaveNoCurrentOneBeyondTheirCount) {
  setProperty("_NET_CURRENT_DESKTOP", "32c", "3");
  EXPECT_TRUE(waitFor([this] { return followed_.current() == -1; }));
  EXPECT_EQ(followed_.count(), 3);
}

}  // namespace
}  // namespace roomlattice::tests

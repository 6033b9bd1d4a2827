#include "tests/x11/desktops/DesktopsFixture.h"

#include <csignal>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Direction;
using ::testing::ElementsAre;

class DesktopsOfKWin : public ::testing::Test {
 protected:
  void call(const std::string& method, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{
        "dbus-send",           "--print-reply",          "--session",
        "--dest=org.kde.KWin", "/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager." + method};
    command.insert(command.end(), arguments.begin(), arguments.end());
    followed_.session.run(command);
  }

  void createDesktop(int position) { call("createDesktop", {"uint32:" + std::to_string(position), "string:New"}); }
  void removeDesktop(const std::string& identifier) { call("removeDesktop", {"string:" + identifier}); }

  FollowedDesktops followed_{{.windowManager = WindowManagerKind::KWin, .desktops = 3}};
};

TEST_F(DesktopsOfKWin, AreIdentifiedByKWinsIdentifiers) {
  EXPECT_THAT(followed_.uuids(), ElementsAre("test-desktop-1", "test-desktop-2", "test-desktop-3"));
}

TEST_F(DesktopsOfKWin, KeepTheirIdentityWhenOneIsRemovedFromTheMiddle) {
  const platform::SpaceID third = followed_.desktops.list().desktops[2].id;
  removeDesktop("test-desktop-2");
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 2; }));
  EXPECT_THAT(followed_.uuids(), ElementsAre("test-desktop-1", "test-desktop-3"));
  EXPECT_EQ(followed_.desktops.list().desktops[1].id, third);
}

TEST_F(DesktopsOfKWin, KeepTheirIdentityWhenOneIsMadeInTheMiddle) {
  createDesktop(1);
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 4; }));
  EXPECT_EQ(followed_.uuids()[0], "test-desktop-1");
  EXPECT_EQ(followed_.uuids()[2], "test-desktop-2");
  EXPECT_EQ(followed_.uuids()[3], "test-desktop-3");
}

TEST_F(DesktopsOfKWin, AreSwitchedRightlyAfterOneWasMadeInTheMiddle) {
  createDesktop(1);
  ASSERT_TRUE(waitFor([this] { return followed_.count() == 4; }));
  for (int place = 1; place < 4; ++place) {
    followed_.desktops.step(Direction::Right);
    EXPECT_TRUE(waitFor([&] { return followed_.current() == place; })) << place;
  }
}

TEST_F(DesktopsOfKWin, HaveTheRightCurrentOneWhenTheCurrentIsRemoved) {
  followed_.desktops.activate(1);
  ASSERT_TRUE(waitFor([this] { return followed_.current() == 1; }));
  removeDesktop("test-desktop-2");
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 2 && followed_.current() >= 0; }));
}

TEST_F(DesktopsOfKWin, AreFollowedByEwmhWhenTheBusIsGone) {
  followed_.session.stopBus();
  EXPECT_TRUE(waitFor([this] { return followed_.uuids().front() == "desktop-1"; }));
  EXPECT_EQ(followed_.count(), 3);
  followed_.desktops.step(Direction::Right);
  EXPECT_TRUE(waitFor([this] { return followed_.session.currentDesktop() == 1 && followed_.current() == 1; }));
}

TEST_F(DesktopsOfKWin, KeepTheirIdentityWhenKWinIsReplacedByItself) {
  const auto before = followed_.uuids();
  std::vector<std::vector<std::string>> seen;
  const platform::Registration observation = followed_.center.observe(platform::notification::activeSpaceDidChange,
                                                                      [&] { seen.push_back(followed_.uuids()); });
  followed_.session.startWindowManager(WindowManagerKind::KWin);
  followed_.session.run({"wmctrl", "-s", "2"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
  EXPECT_THAT(seen, ::testing::Each(before));
}

TEST(DesktopsOfKWinWithoutABus, AreFollowedByEwmh) {
  SessionOptions options{.windowManager = WindowManagerKind::KWin, .desktops = 3};
  X11Session session(options);
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (session.home() / "no-bus").string());
  QtApplication qt;
  InProcessNotificationCenter center;
  platform::linux::MessageBus bus(platform::linux::MessageBus::Kind::Session);
  platform::x11::WindowManagerWatch windowManager(qt.connection());
  const platform::x11::X11Desktops desktops(qt.connection(), bus, windowManager, center);
  ASSERT_EQ(desktops.list().desktops.size(), 3U);
  EXPECT_EQ(desktops.list().desktops[0].uuid, "desktop-1");
}

TEST(DesktopsOfAKWinThatHangs, AreFollowedByEwmhAndByTheBusOnceItAnswers) {
  X11Session session({.windowManager = WindowManagerKind::KWin, .desktops = 3});
  session.windowManager()->signal(SIGSTOP);
  QtApplication qt;
  InProcessNotificationCenter center;
  platform::linux::MessageBus bus(platform::linux::MessageBus::Kind::Session);
  platform::x11::WindowManagerWatch windowManager(qt.connection());
  const platform::x11::X11Desktops desktops(qt.connection(), bus, windowManager, center);
  EXPECT_EQ(desktops.list().desktops.size(), 3U);
  session.windowManager()->signal(SIGCONT);
  EXPECT_TRUE(waitFor([&] { return desktops.list().desktops[0].uuid == "test-desktop-1"; }));
}

}  // namespace
}  // namespace roomlattice::tests

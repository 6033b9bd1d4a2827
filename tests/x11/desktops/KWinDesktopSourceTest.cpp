#include "platform/x11/desktops/KWinDesktopSource.h"

#include "tests/linux/session/FakeService.h"
#include "tests/x11/desktops/DesktopsFixture.h"

#include <csignal>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Direction;
using ::testing::ElementsAre;

class KWinDesktopSourceTest : public ::testing::Test {
 protected:
  FollowedKWinDesktops followed_;
};

TEST_F(KWinDesktopSourceTest, AreIdentifiedByKWinsIdentifiers) {
  EXPECT_THAT(followed_.uuids(), ElementsAre("test-desktop-1", "test-desktop-2", "test-desktop-3"));
}

TEST_F(KWinDesktopSourceTest, KeepTheirIdentityWhenOneIsRemovedFromTheMiddle) {
  const platform::SpaceID third = followed_.desktops.list().desktops[2].id;
  followed_.remove("test-desktop-2");
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 2; }));
  EXPECT_THAT(followed_.uuids(), ElementsAre("test-desktop-1", "test-desktop-3"));
  EXPECT_EQ(followed_.desktops.list().desktops[1].id, third);
}

TEST_F(KWinDesktopSourceTest, KeepTheirIdentityWhenOneIsMadeInTheMiddle) {
  followed_.create(1);
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 4; }));
  EXPECT_EQ(followed_.uuids()[0], "test-desktop-1");
  EXPECT_EQ(followed_.uuids()[2], "test-desktop-2");
  EXPECT_EQ(followed_.uuids()[3], "test-desktop-3");
}

TEST_F(KWinDesktopSourceTest, AreSwitchedRightlyAfterOneWasMadeInTheMiddle) {
  followed_.create(1);
  ASSERT_TRUE(waitFor([this] { return followed_.count() == 4; }));
  for (int place = 1; place < 4; ++place) {
    followed_.desktops.step(Direction::Right);
    EXPECT_TRUE(waitFor([&] { return followed_.current() == place; })) << place;
  }
}

TEST_F(KWinDesktopSourceTest, HaveTheRightCurrentOneWhenTheCurrentIsRemoved) {
  followed_.desktops.activate(1);
  ASSERT_TRUE(waitFor([this] { return followed_.current() == 1; }));
  followed_.remove("test-desktop-2");
  EXPECT_TRUE(waitFor([this] { return followed_.count() == 2 && followed_.current() >= 0; }));
}

TEST_F(KWinDesktopSourceTest, AreFollowedByEwmhWhenTheBusIsGone) {
  followed_.session.stopBus();
  EXPECT_TRUE(waitFor([this] { return followed_.uuids().front() == "desktop-1"; }));
  EXPECT_EQ(followed_.count(), 3);
  followed_.desktops.step(Direction::Right);
  EXPECT_TRUE(waitFor([this] { return followed_.session.currentDesktop() == 1 && followed_.current() == 1; }));
}

TEST_F(KWinDesktopSourceTest, KeepTheirIdentityWhenKWinIsReplacedByItself) {
  const auto before = followed_.uuids();
  std::vector<std::vector<std::string>> seen;
  const platform::Registration observation = followed_.center.observe(platform::notification::activeSpaceDidChange,
                                                                      [&] { seen.push_back(followed_.uuids()); });
  followed_.session.startWindowManager(WindowManagerKind::KWin);
  followed_.session.run({"wmctrl", "-s", "2"});
  EXPECT_TRUE(waitFor([this] { return followed_.current() == 2; }));
  EXPECT_THAT(seen, ::testing::Each(before));
}

TEST(KWinDesktopSourceWithoutABusTest, AreFollowedByEwmh) {
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

TEST(KWinDesktopSourceThatHangsTest, AreFollowedByEwmhAndByTheBusOnceItAnswers) {
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

struct OddAnswer {
  const char* name;
  WriteArguments write;
};

class FakeKWinTest : public ::testing::Test {
 protected:
  static void tellTwoDesktops(sd_bus_message* answer) {
    sd_bus_message_append(answer, "a{sv}", 2, "current", "s", "b", "desktops", "a(uss)", 2, 1U, "b", "Two", 0U, "a",
                          "One");
  }

  static void tellOneDesktop(sd_bus_message* answer) {
    sd_bus_message_append(answer, "a{sv}", 2, "current", "s", "a", "desktops", "a(uss)", 1, 0U, "a", "One");
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  platform::linux::MessageBus bus_{platform::linux::MessageBus::Kind::Session};
  FakeService kwin_{session_.busAddress(), "org.kde.KWin"};
};

class KWinDesktopSourceThatIsBusyTest : public FakeKWinTest {};

TEST_F(KWinDesktopSourceThatIsBusyTest, IsAskedAgainWhenItHasNotAnsweredInTime) {
  kwin_.answerWith(tellTwoDesktops);
  platform::x11::KWinDesktopSource source(qt_.connection(), bus_, [] {});
  source.waitForAnswer(std::chrono::seconds(30));
  ASSERT_EQ(source.read()->desktops.size(), 2U);
  kwin_.answerWith({});
  const int before = kwin_.calls();
  kwin_.emit("/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager", "desktopRemoved",
             [](sd_bus_message* signal) { sd_bus_message_append(signal, "s", "b"); });
  ASSERT_TRUE(waitFor([&] { return kwin_.calls() > before; }));
  kwin_.answerWith(tellOneDesktop);
  EXPECT_TRUE(waitFor([&] { return source.read()->desktops.size() == 1U; }));
}

class KWinDesktopSourceWithOddAnswersTest : public FakeKWinTest, public ::testing::WithParamInterface<OddAnswer> {};

TEST_P(KWinDesktopSourceWithOddAnswersTest, IsNotHeardUntilItMakesSense) {
  kwin_.answerWith(GetParam().write);
  platform::x11::KWinDesktopSource source(qt_.connection(), bus_, [] {});
  EXPECT_EQ(source.read(), std::nullopt);
  source.waitForAnswer(std::chrono::milliseconds(30));
  EXPECT_EQ(source.read(), std::nullopt);
  kwin_.answerWith(tellTwoDesktops);
  EXPECT_TRUE(waitFor([&] {
    kwin_.emit("/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager", "countChanged", GetParam().write);
    return source.read().has_value();
  }));
  EXPECT_EQ(source.read()->desktops.at(0).uuid, "a");
  EXPECT_EQ(source.read()->current, 1U);
}

TEST_P(KWinDesktopSourceWithOddAnswersTest, KeepsTheDesktopsItHasTold) {
  kwin_.answerWith(tellTwoDesktops);
  platform::x11::KWinDesktopSource source(qt_.connection(), bus_, [] {});
  source.waitForAnswer(std::chrono::seconds(30));
  ASSERT_EQ(source.read()->desktops.size(), 2U);
  kwin_.answerWith(GetParam().write);
  for (const char* signal : {"currentChanged", "desktopCreated"}) {
    kwin_.emit("/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager", signal, GetParam().write);
  }
  kwin_.emit("/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager", "currentChanged",
             [](sd_bus_message* signal) { sd_bus_message_append(signal, "s", "a"); });
  EXPECT_TRUE(waitFor([&] { return source.read()->current == 0U; }));
  EXPECT_EQ(source.read()->desktops.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, KWinDesktopSourceWithOddAnswersTest,
    ::testing::Values(
        OddAnswer{"Nothing", [](sd_bus_message*) {}},
        OddAnswer{"DictionaryOfTexts",
                  [](sd_bus_message* m) { sd_bus_message_append(m, "a{ss}", 1, "desktops", "x"); }},
        OddAnswer{"DictionaryOfNumbers",
                  [](sd_bus_message* m) { sd_bus_message_append(m, "a{su}", 1, "desktops", 5U); }},
        OddAnswer{"Structure", [](sd_bus_message* m) { sd_bus_message_append(m, "(sv)", "desktops", "s", "x"); }},
        OddAnswer{"ArrayOfVariants", [](sd_bus_message* m) { sd_bus_message_append(m, "av", 1, "s", "desktops"); }},
        OddAnswer{"ArrayOfArrays", [](sd_bus_message* m) { sd_bus_message_append(m, "aas", 1, 1, "desktops"); }},
        OddAnswer{
            "DesktopsOfAnotherType",
            [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "desktops", "a(iss)", 1, 0, "x", "X"); }},
        OddAnswer{"NoDesktops",
                  [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "desktops", "a(uss)", 0); }},
        OddAnswer{
            "DesktopsWithoutIdentifiers",
            [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "desktops", "a(uss)", 1, 0U, "", "X"); }}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace roomlattice::tests

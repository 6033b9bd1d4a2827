#include "platform/x11/desktops/X11DesktopNames.h"

#include "platform/linux/storage/LinuxDefaults.h"
#include "platform/x11/connection/Properties.h"
#include "tests/x11/desktops/DesktopsFixture.h"
#include "tests/x11/session/ForeignNames.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::x11::X11DesktopNames;
using ::testing::ElementsAre;
using Texts = std::vector<std::string>;

/// The names of a session's desktops, as the program exchanges them, and as another program sees them.
class SharedNames {
 public:
  explicit SharedNames(const SessionOptions& options)
      : followed(options), foreign(followed.session, *options.windowManager) {}

  /// In the order of the desktops; nothing while none are shared.
  std::optional<Texts> read() {
    const auto all = names.read();
    Texts texts;
    for (const std::string& uuid : followed.uuids()) {
      texts.push_back(all ? all->at(uuid) : std::string());
    }
    return all ? std::optional(texts) : std::nullopt;
  }

  void rename(std::size_t index, const std::string& name) { names.set(followed.uuids().at(index), name); }

  FollowedDesktops followed;
  ForeignNames foreign;
  platform::linux::LinuxDefaults defaults{std::nullopt, [](const std::string&) {}};
  InProcessNotificationCenter settingsCenter;
  X11DesktopNames names{followed.desktops, defaults, settingsCenter};
  int changes = 0;
  platform::Registration observation = names.observe([this] { ++changes; });
};

class X11DesktopNamesTest : public OnEveryWindowManager {
 protected:
  SharedNames shared_{{.windowManager = GetParam(), .desktops = 3}};
};

TEST_P(X11DesktopNamesTest, AreThoseThatAnotherProgramSets) {
  ASSERT_TRUE(shared_.read().has_value());
  ASSERT_TRUE(shared_.foreign.set({"Mail", "Größe", "Chat"}));
  EXPECT_TRUE(waitFor([this] { return shared_.read() == Texts{"Mail", "Größe", "Chat"}; }));
  EXPECT_GT(shared_.changes, 0);
  EXPECT_EQ(shared_.followed.posts, 0);
}

TEST_P(X11DesktopNamesTest, AreSetForTheWindowManagerAndForPagers) {
  // All of them: a window manager that has to add those that are missing may do so after the names below are set.
  ASSERT_TRUE(shared_.foreign.set({"Mail", "Web", "News"}));
  shared_.rename(1, "Größe");
  shared_.rename(2, "Chat");
  EXPECT_TRUE(shared_.foreign.become({"Mail", "Größe", "Chat"}));
  EXPECT_TRUE(waitFor([this] { return shared_.read() == Texts{"Mail", "Größe", "Chat"}; }));
}

TEST_P(X11DesktopNamesTest, AreKeptWhenADesktopIsMade) {
  shared_.rename(1, "Web");
  ASSERT_TRUE(waitFor([this] { return shared_.read()->at(1) == "Web"; }));
  shared_.followed.session.setDesktopCount(4);
  EXPECT_TRUE(waitFor([this] { return shared_.followed.count() == 4; }));
  EXPECT_EQ(shared_.read()->at(1), "Web");
  EXPECT_EQ(shared_.read()->size(), 4U);
}

TEST_P(X11DesktopNamesTest, AreNotSharedWhileTheUserDoesNotWantTo) {
  shared_.names.setSharing(X11DesktopNames::Sharing::Off);
  EXPECT_EQ(shared_.changes, 1);
  EXPECT_EQ(shared_.read(), std::nullopt);
  shared_.rename(1, "Web");
  shared_.names.setSharing(X11DesktopNames::Sharing::On);
  EXPECT_EQ(shared_.changes, 2);
  shared_.rename(2, "Chat");
  ASSERT_TRUE(waitFor([this] { return shared_.read()->at(2) == "Chat"; }));
  EXPECT_NE(shared_.read()->at(1), "Web");
}

TEST_P(X11DesktopNamesTest, FollowAnEditOfTheSettings) {
  shared_.defaults.set("DesktopNames.Shared", false);
  shared_.settingsCenter.post(platform::notification::defaultsDidChangeElsewhere);
  EXPECT_EQ(shared_.changes, 1);
  EXPECT_EQ(shared_.read(), std::nullopt);
}

TEST_P(X11DesktopNamesTest, AreUnknownWhileNoWindowManagerRuns) {
  shared_.followed.session.stopWindowManager();
  EXPECT_TRUE(waitFor([this] { return !shared_.read(); }));
  shared_.followed.session.startWindowManager(GetParam());
  EXPECT_TRUE(waitFor([this] { return shared_.read().has_value(); }));
}

INSTANTIATE_TEST_SUITE_P(OnEvery, X11DesktopNamesTest, everyWindowManager(), ::testing::PrintToStringParamName());

/// Under a window manager that leaves the property as others write it.
class X11DesktopNamesPropertyTest : public ::testing::Test {
 protected:
  bool reads(const Texts& texts) {
    return waitFor([&] { return shared_.read() == texts; });
  }

  SharedNames shared_{{.windowManager = WindowManagerKind::Xfwm4, .desktops = 3}};
  const std::string zero_ = std::string(1, '\0');
};

TEST_F(X11DesktopNamesPropertyTest, MayBeFewerOrMoreThanDesktops) {
  shared_.foreign.setProperty("Mail");
  EXPECT_TRUE(reads({"Mail", "", ""}));
  shared_.foreign.setProperty(platform::x11::bytesOf({"Mail", "", "Chat", "Gone", "Gone"}));
  EXPECT_TRUE(reads({"Mail", "", "Chat"}));
  shared_.foreign.setProperty("");
  EXPECT_TRUE(reads({"", "", ""}));
}

TEST_F(X11DesktopNamesPropertyTest, AreNotToldAgainToOneWhoHasReadThemWithTheList) {
  const platform::Registration reader =
      shared_.followed.center.observe(platform::notification::activeSpaceDidChange, [this] { shared_.names.read(); });
  shared_.followed.session.setDesktopCount(4);
  ASSERT_TRUE(waitFor([this] { return shared_.followed.count() == 4; }));
  EXPECT_EQ(shared_.changes, 0);
  shared_.foreign.setProperty(platform::x11::bytesOf({"Mail", "", "", "Chat"}));
  EXPECT_TRUE(reads({"Mail", "", "", "Chat"}));
  EXPECT_EQ(shared_.changes, 1);
}

TEST_F(X11DesktopNamesPropertyTest, MayBeNoTextsAtAll) {
  shared_.foreign.setProperty("\xff\xfe" + zero_ + "Web");
  EXPECT_TRUE(reads({"\xef\xbf\xbd\xef\xbf\xbd", "Web", ""}));
  shared_.foreign.setProperty("Mail", XCB_ATOM_STRING);
  EXPECT_TRUE(reads({"", "", ""}));
}

TEST_F(X11DesktopNamesPropertyTest, LeaveTheBytesOfTheOthersAlone) {
  shared_.foreign.setProperty("\xff" + zero_ + "Web" + zero_ + zero_ + "Gone" + zero_);
  shared_.rename(1, "News");
  EXPECT_TRUE(
      waitFor([&] { return shared_.foreign.property() == "\xff" + zero_ + "News" + zero_ + zero_ + "Gone" + zero_; }));
}

TEST_F(X11DesktopNamesPropertyTest, NumberTheDesktopsBeforeThatHaveNone) {
  shared_.foreign.setProperty("");
  shared_.rename(2, "Chat");
  EXPECT_TRUE(reads({"Desktop 1", "Desktop 2", "Chat"}));
}

TEST_F(X11DesktopNamesPropertyTest, AreNotWrittenWhereTheyWouldBeHuge) {
  const std::string huge(200000, 'x');
  shared_.foreign.setProperty(huge);
  ASSERT_TRUE(reads({huge, "", ""}));
  shared_.rename(1, "Web");
  shared_.foreign.setProperty("Mail");
  ASSERT_TRUE(reads({"Mail", "", ""}));
  shared_.rename(1, huge);
  shared_.rename(2, "Chat");
  EXPECT_TRUE(reads({"Mail", "Desktop 2", "Chat"}));
}

TEST_F(X11DesktopNamesPropertyTest, HaveNoneForADesktopThatIsNotThere) {
  shared_.names.set("desktop-4", "Web");
  shared_.names.set("", "Web");
  shared_.rename(0, "Mail");
  EXPECT_TRUE(reads({"Mail", "", ""}));
}

TEST(X11DesktopNamesOfKWinTest, AreThoseThatKWinKeeps) {
  SharedNames shared({.windowManager = WindowManagerKind::KWin, .desktops = 3});
  shared.rename(2, "Größe");
  EXPECT_TRUE(
      waitFor([&] { return shared.followed.session.desktopsOfKWin().find("string \"Größe\"") != std::string::npos; }));
  EXPECT_TRUE(waitFor([&] { return shared.read()->at(2) == "Größe"; }));
}

TEST(X11DesktopNamesOfI3Test, AreReadAndLeftAlone) {
  SharedNames shared({.windowManager = WindowManagerKind::I3});
  shared.followed.session.run({"i3-msg", "workspace", "2: mail"});
  ASSERT_TRUE(waitFor([&] { return shared.read() == Texts{"2: mail"}; }));
  shared.rename(0, "Web");
  shared.followed.session.run({"i3-msg", "workspace", "play"});
  EXPECT_TRUE(waitFor([&] { return shared.read() == Texts{"play"}; }));
  EXPECT_THAT(shared.followed.uuids(), ElementsAre("workspace-play"));
}

}  // namespace
}  // namespace roomlattice::tests

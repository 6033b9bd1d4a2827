#include "tests/x11/session/ForeignNames.h"
#include "tests/x11/session/ProgramSession.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using Texts = std::vector<std::string>;

/// The names of desktops in the program and in the window manager.
class ProgramNamesTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  std::string ctl(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ROOMLATTICECTL_PROGRAM);
    ChildProcess process(arguments);
    static_cast<void>(process.waitForExitStatus());
    return process.output();
  }

  bool isCalledHere(const Texts& names) {
    return waitFor([&] {
      const std::string list = ctl({"list"});
      int number = 0;
      return std::ranges::all_of(names, [&](const std::string& name) {
        return list.find(" " + std::to_string(++number) + "  " + name) != std::string::npos;
      });
    });
  }

  ProgramSession user_{{.windowManager = GetParam(), .desktops = 3}};
  ForeignNames there_{user_.session, GetParam()};
};

TEST_P(ProgramNamesTest, AreThoseOfTheWindowManagerAtTheStart) {
  ASSERT_TRUE(there_.set({"Mail", "Größe", "Workspace 3"}));
  ASSERT_TRUE(user_.start());
  EXPECT_TRUE(isCalledHere({"Mail", "Größe", "Desktop 3"}));
}

TEST_P(ProgramNamesTest, ComeFromTheOneWhoRenamesLast) {
  ASSERT_TRUE(user_.start());
  ASSERT_TRUE(isCalledHere({"Desktop 1", "Desktop 2", "Desktop 3"}));
  for (const std::string name : {"Mail", "Größe", "中文"}) {
    ctl({"rename", "1", name + " a"});
    ctl({"rename", "2", name + " b"});
    EXPECT_TRUE(there_.become({name + " a", name + " b"}));
    ASSERT_TRUE(there_.set({name + " a", name + " c", name}));
    EXPECT_TRUE(isCalledHere({name + " a", name + " c", name}));
    ctl({"rename", "3", name + " d"});
    EXPECT_TRUE(there_.become({name + " a", name + " c", name + " d"}));
  }
}

TEST_P(ProgramNamesTest, GoBackToTheNumberWhereTheyAreTakenAway) {
  ASSERT_TRUE(user_.start());
  ASSERT_TRUE(isCalledHere({"Desktop 1", "Desktop 2", "Desktop 3"}));
  ASSERT_TRUE(there_.set({"Workspace 1", "Mail", "Workspace 3"}));
  ASSERT_TRUE(isCalledHere({"Desktop 1", "Mail", "Desktop 3"}));
  ctl({"rename", "2", ""});
  EXPECT_TRUE(isCalledHere({"Desktop 1", "Desktop 2", "Desktop 3"}));
  EXPECT_TRUE(there_.become({"Workspace 1", "Workspace 2", "Workspace 3"}));
}

TEST_P(ProgramNamesTest, AreThoseOfTheSettingsBeforeThoseOfTheWindowManager) {
  const std::string second = GetParam() == WindowManagerKind::KWin ? "test-desktop-2" : "desktop-2";
  ASSERT_TRUE(there_.set({"Mail", "News", "Chat"}));
  ASSERT_TRUE(user_.start(R"({"SpaceNames": {")" + second + R"(": "Web"}})"));
  EXPECT_TRUE(isCalledHere({"Mail", "Web", "Chat"}));
  EXPECT_TRUE(there_.become({"Mail", "Web", "Chat"}));
}

TEST_P(ProgramNamesTest, StayApartWhereTheUserWantsThat) {
  ASSERT_TRUE(there_.set({"Mail", "News", "Chat"}));
  ASSERT_TRUE(user_.start(R"({"DesktopNames.Shared": false})"));
  ctl({"rename", "2", "Web"});
  EXPECT_TRUE(isCalledHere({"Desktop 1", "Web", "Desktop 3"}));
  ASSERT_TRUE(there_.set({"Letters", "News", "Chat"}));
  EXPECT_TRUE(isCalledHere({"Desktop 1", "Web", "Desktop 3"}));
  EXPECT_TRUE(there_.become({"Letters", "News", "Chat"}));
}

INSTANTIATE_TEST_SUITE_P(OnSome, ProgramNamesTest,
                         ::testing::Values(WindowManagerKind::Openbox, WindowManagerKind::KWin),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests

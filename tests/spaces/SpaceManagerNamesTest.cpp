#include "spaces/SpaceManager.h"

#include "tests/support/SimulatedFixture.h"

#include <string>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

const SpaceInfo first{1, "A", "Main", 0};
const SpaceInfo fullScreen{2, "F", "Main", 4};
const SpaceInfo second{3, "B", "Main", 0};
const SpaceInfo otherFirst{4, "C", "Other", 0};
const SpaceInfo otherSecond{5, "D", "Other", 0};

class SpaceManagerNamesTest : public tests::SimulatedFixture {
 protected:
  SpaceManager& managerWithDesktops() {
    SpaceManager& manager = SpaceManager::shared();
    manager.update({first, fullScreen, second, otherFirst, otherSecond}, 1);
    return manager;
  }

  Value stored() { return desktop.storedDefaults()["SpaceNames"]; }
};

TEST_F(SpaceManagerNamesTest, NumberTheRegularDesktopsOfEachDisplayFromOne) {
  const SpaceManager& manager = managerWithDesktops();
  EXPECT_EQ(manager.displayName(first), "Desktop 1");
  EXPECT_EQ(manager.displayName(second), "Desktop 2");
  EXPECT_EQ(manager.displayName(otherFirst), "Desktop 1");
  EXPECT_EQ(manager.displayName(otherSecond), "Desktop 2");
}

TEST_F(SpaceManagerNamesTest, GiveNoNumberToAFullScreenSpaceOrAnUnknownOne) {
  const SpaceManager& manager = managerWithDesktops();
  EXPECT_EQ(manager.displayName(fullScreen), "Desktop");
  EXPECT_EQ(manager.displayName({9, "Z", "Main", 0}), "Desktop");
  EXPECT_EQ(manager.displayName({1, "A", "Main", 4}), "Desktop");
}

TEST_F(SpaceManagerNamesTest, HaveADefaultNumberUntilTheUserGivesOne) {
  SpaceManager& manager = managerWithDesktops();
  EXPECT_EQ(manager.defaultNumber(otherSecond), 2);
  EXPECT_EQ(manager.defaultNumber(fullScreen), std::nullopt);
  manager.setName("Work", otherSecond);
  EXPECT_EQ(manager.defaultNumber(otherSecond), std::nullopt);
  manager.setName(" ", otherSecond);
  EXPECT_EQ(manager.defaultNumber(otherSecond), 2);
}

TEST_F(SpaceManagerNamesTest, NumberTheFirstOfTwoEqualEntries) {
  SpaceManager& manager = SpaceManager::shared();
  manager.update({second, first, first}, 1);
  EXPECT_EQ(manager.displayName(first), "Desktop 2");
}

TEST_F(SpaceManagerNamesTest, FollowTheUuidWhateverElseChanges) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("Work", first);
  EXPECT_EQ(manager.displayName({99, "A", "Elsewhere", 4}), "Work");
}

TEST_F(SpaceManagerNamesTest, AreStoredWithoutWhiteSpaceAtTheirEnds) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("  Work \n", first);
  EXPECT_EQ(manager.displayName(first), "Work");
  EXPECT_EQ(stored(), Value(Value::Dictionary{{"A", "Work"}}));
}

TEST_F(SpaceManagerNamesTest, KeepWhatIsBetweenTheWords) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("\u2003deep  focus\u00A0", second);
  EXPECT_EQ(manager.displayName(second), "deep  focus");
}

TEST_F(SpaceManagerNamesTest, GoWithABlankName) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("Work", first);
  manager.setName("Mail", second);
  for (const char* blank : {"", " \t\n", "\u3000"}) {
    manager.setName("Work", first);
    manager.setName(blank, first);
    EXPECT_EQ(manager.displayName(first), "Desktop 1");
    EXPECT_EQ(stored(), Value(Value::Dictionary{{"B", "Mail"}}));
  }
}

TEST_F(SpaceManagerNamesTest, LeaveAnEmptyDictionaryWhenTheLastHasGone) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("Work", first);
  manager.setName("", first);
  EXPECT_EQ(stored(), Value(Value::Dictionary{}));
}

TEST_F(SpaceManagerNamesTest, AreReadFromTheSettingsOnceAndWrittenWhole) {
  SpaceManager& manager = managerWithDesktops();
  desktop.storedDefaults()["SpaceNames"] = Value::Dictionary{{"A", "Work"}};
  EXPECT_EQ(manager.displayName(first), "Desktop 1");
  manager.setName("Mail", second);
  EXPECT_EQ(stored(), Value(Value::Dictionary{{"B", "Mail"}}));
}

TEST_F(SpaceManagerNamesTest, PostOneChangeForEverySet) {
  SpaceManager& manager = managerWithDesktops();
  int changes = 0;
  const auto observer =
      platform().notifications().defaultCenter().observe("SpaceManagerDidChange", [&changes] { ++changes; });
  for (const char* name : {"Work", "Work", "", " "}) {
    changes = 0;
    manager.setName(name, first);
    EXPECT_EQ(changes, 1) << name;
  }
}

TEST_F(SpaceManagerNamesTest, AreStoredBeforeTheChangeIsPosted) {
  SpaceManager& manager = managerWithDesktops();
  Value seen;
  const auto observer =
      platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] { seen = stored(); });
  manager.setName("Work", first);
  EXPECT_EQ(seen, Value(Value::Dictionary{{"A", "Work"}}));
}

TEST_F(SpaceManagerNamesTest, SurviveARestart) {
  managerWithDesktops().setName("Work", first);
  relaunch();
  EXPECT_EQ(managerWithDesktops().displayName(first), "Work");
}

TEST_F(SpaceManagerNamesTest, ComeBackWithTheirDesktop) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("Work", first);
  manager.update({second}, 3);
  manager.setName("Mail", second);
  manager.update({first, second}, 1);
  EXPECT_EQ(manager.displayName(first), "Work");
}

TEST_F(SpaceManagerNamesTest, AreTakenFromTheSettingsAsTheyStand) {
  desktop.storedDefaults()["SpaceNames"] = Value::Dictionary{{"A", " Work "}, {"B", ""}, {"gone", "Play"}};
  SpaceManager& manager = managerWithDesktops();
  EXPECT_EQ(manager.displayName(first), " Work ");
  EXPECT_EQ(manager.displayName(second), "Desktop 2");
  manager.setName("Mail", otherFirst);
  EXPECT_EQ(stored(), Value(Value::Dictionary{{"A", " Work "}, {"B", ""}, {"C", "Mail"}, {"gone", "Play"}}));
}

TEST_F(SpaceManagerNamesTest, AreEmptyWhereTheSettingsHoldSomethingElse) {
  for (const Value& damaged :
       {Value("Work"), Value(Value::Array{"A", "Work"}), Value(7), Value(Value::Dictionary{{"A", "Work"}, {"B", 7}})}) {
    desktop.storedDefaults()["SpaceNames"] = damaged;
    relaunch();
    EXPECT_EQ(managerWithDesktops().displayName(first), "Desktop 1");
  }
}

TEST_F(SpaceManagerNamesTest, BorrowNamesForDesktopsThatHaveNone) {
  SpaceManager& manager = managerWithDesktops();
  manager.setName("Work", first);
  int posts = 0;
  const platform::Registration observer =
      platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] { ++posts; });
  const std::map<std::string, std::string> names{{"A", "Mail"}, {"B", "Web"}, {"Z", "Gone"}};
  manager.borrowNames(names);
  EXPECT_EQ(manager.displayName(first), "Work");
  EXPECT_EQ(manager.displayName(second), "Web");
  EXPECT_EQ(manager.defaultNumber(second), std::nullopt);
  EXPECT_EQ(manager.displayName(otherFirst), "Desktop 1");
  manager.borrowNames(names);
  EXPECT_EQ(posts, 1);
  manager.borrowNames({});
  EXPECT_EQ(manager.displayName(second), "Desktop 2");
  EXPECT_EQ(posts, 2);
}

TEST_F(SpaceManagerNamesTest, KeepNoneThatAreBorrowed) {
  SpaceManager& manager = managerWithDesktops();
  manager.borrowNames({{"A", "Mail"}, {"B", "Web"}});
  manager.setName("Work", first);
  EXPECT_EQ(*manager.storedName(first), "Work");
  EXPECT_EQ(manager.storedName(second), nullptr);
  EXPECT_EQ(stored(), Value(Value::Dictionary{{"A", "Work"}}));
}

TEST_F(SpaceManagerNamesTest, EndABorrowedNameWithTheOneThatIsSet) {
  SpaceManager& manager = managerWithDesktops();
  manager.borrowNames({{"A", "Mail"}, {"B", "Web"}});
  manager.setName("", second);
  EXPECT_EQ(manager.displayName(second), "Desktop 2");
  manager.setName("Work", first);
  manager.setName("", first);
  EXPECT_EQ(manager.displayName(first), "Desktop 1");
}

}  // namespace
}  // namespace roomlattice

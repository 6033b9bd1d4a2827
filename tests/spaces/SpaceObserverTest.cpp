#include "spaces/SpaceObserver.h"

#include "spaces/SpaceManager.h"
#include "tests/support/SimulatedFixture.h"

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

class SpaceObserverTest : public tests::SimulatedFixture {
 protected:
  const std::vector<SpaceInfo>& refreshed() {
    observer.refresh();
    return SpaceManager::shared().spaces();
  }

  const std::vector<SpaceInfo>& read(const Value& displays) {
    desktop.overrideManagedDisplaySpaces(displays);
    return refreshed();
  }

  /// One display with these spaces.
  const std::vector<SpaceInfo>& readSpaces(const Value& spaces) {
    return read(Value::Array{Value::Dictionary{{"Display Identifier", "Main"}, {"Spaces", spaces}}});
  }

  SpaceObserver observer{platform().windowServer(), platform().notifications().workspaceCenter(),
                         SpaceManager::shared()};
};

Value space(std::int64_t identifier) {
  return Value::Dictionary{{"ManagedSpaceID", identifier}};
}

TEST_F(SpaceObserverTest, ListsEverySpaceByDisplayAndThenByItsOrderThere) {
  const std::size_t display = desktop.addDisplay("Display 2", 2);
  const platform::SpaceID fullScreen = desktop.enterFullScreen();
  const std::vector<SpaceInfo>& spaces = refreshed();
  ASSERT_EQ(spaces.size(), 6U);
  EXPECT_EQ(spaces[0].spaceID, desktop.desktopAt(0));
  EXPECT_EQ(spaces[1].spaceID, fullScreen);
  EXPECT_FALSE(spaces[1].isRegular());
  EXPECT_EQ(spaces[0].displayUUID, "Display 1");
  EXPECT_EQ(spaces[4].displayUUID, "Display 2");
  EXPECT_EQ(spaces[5].uuid, desktop.spaces().displays()[display].spaces[1].uuid);
}

TEST_F(SpaceObserverTest, AsksTheWindowServerForTheActiveDesktop) {
  desktop.switchTo(desktop.desktopAt(2));
  refreshed();
  EXPECT_EQ(SpaceManager::shared().activeSpaceID(), desktop.desktopAt(2));
  desktop.overrideActiveSpace(4711);
  refreshed();
  EXPECT_EQ(SpaceManager::shared().activeSpaceID(), 4711U);
}

TEST_F(SpaceObserverTest, RefreshesWhenTheWorkspaceReportsAnotherActiveDesktop) {
  observer.activeSpaceDidChange();
  EXPECT_EQ(SpaceManager::shared().spaces().size(), 3U);
}

TEST_F(SpaceObserverTest, ReadsAnythingButAnArrayOfDictionariesAsNoDesktops) {
  const Value good = Value::Dictionary{{"Spaces", Value::Array{space(1)}}};
  for (const Value& malformed : {Value(), Value("displays"), Value(7), good, Value(Value::Array{good, "display"}),
                                 Value(Value::Array{Value()})}) {
    EXPECT_TRUE(read(malformed).empty());
  }
}

TEST_F(SpaceObserverTest, GivesADisplayWithoutIdentifierTheNameMain) {
  for (const Value& identifier : {Value(7), Value(), Value(Value::Array{"Main"})}) {
    const auto& spaces =
        read(Value::Array{Value::Dictionary{{"Display Identifier", identifier}, {"Spaces", Value::Array{space(1)}}}});
    ASSERT_EQ(spaces.size(), 1U);
    EXPECT_EQ(spaces[0].displayUUID, "Main");
  }
  EXPECT_EQ(read(Value::Array{Value::Dictionary{{"Spaces", Value::Array{space(1)}}}})[0].displayUUID, "Main");
}

TEST_F(SpaceObserverTest, PassesOverADisplayWhoseSpacesAreNoArrayOfDictionaries) {
  const Value good = Value::Dictionary{{"Display Identifier", "B"}, {"Spaces", Value::Array{space(2)}}};
  for (const Value& malformed : {Value("spaces"), Value(), Value(space(1)), Value(Value::Array{space(1), 7})}) {
    const auto& spaces = read(Value::Array{Value::Dictionary{{"Spaces", malformed}}, good});
    ASSERT_EQ(spaces.size(), 1U);
    EXPECT_EQ(spaces[0].spaceID, 2U);
  }
  EXPECT_EQ(read(Value::Array{Value::Dictionary{}, good}).size(), 1U);
}

TEST_F(SpaceObserverTest, FallsBackToTheOtherIdentifier) {
  const auto& spaces =
      readSpaces(Value::Array{Value::Dictionary{{"id64", 5}}, Value::Dictionary{{"ManagedSpaceID", "6"}, {"id64", 7}},
                              Value::Dictionary{{"ManagedSpaceID", 8}, {"id64", 9}}});
  ASSERT_EQ(spaces.size(), 3U);
  EXPECT_EQ(spaces[0].spaceID, 5U);
  EXPECT_EQ(spaces[1].spaceID, 7U);
  EXPECT_EQ(spaces[2].spaceID, 8U);
}

TEST_F(SpaceObserverTest, SkipsASpaceWithoutIdentifier) {
  const auto& spaces =
      readSpaces(Value::Array{Value::Dictionary{{"uuid", "A"}}, Value::Dictionary{{"id64", 1.5}}, space(3)});
  ASSERT_EQ(spaces.size(), 1U);
  EXPECT_EQ(spaces[0].spaceID, 3U);
}

TEST_F(SpaceObserverTest, MakesUpAUuidFromTheIdentifier) {
  const auto& spaces = readSpaces(Value::Array{space(12), Value::Dictionary{{"id64", 13}, {"uuid", 7}},
                                               Value::Dictionary{{"id64", 14}, {"uuid", ""}}});
  EXPECT_EQ(spaces[0].uuid, "space-12");
  EXPECT_EQ(spaces[1].uuid, "space-13");
  EXPECT_EQ(spaces[2].uuid, "");
}

TEST_F(SpaceObserverTest, ReadsWhatHasBecomeOfAListThatItHasRead) {
  const Value first = Value::Dictionary{{"id64", 1}, {"uuid", "A"}};
  const Value second = Value::Dictionary{{"id64", 2}, {"uuid", "B"}};
  const Value renewed = Value::Dictionary{{"id64", 2}, {"uuid", "C"}};
  readSpaces(Value::Array{first, second});
  EXPECT_EQ(readSpaces(Value::Array{first, renewed})[1].uuid, "C");
  EXPECT_EQ(readSpaces(Value::Array{second, first})[0].uuid, "B");
  EXPECT_EQ(readSpaces(Value::Array{first}).size(), 1U);
  const auto& spaces = read(Value::Array{Value::Dictionary{
      {"Display Identifier", "Other"}, {"Spaces", Value::Array{first, Value::Dictionary{}, second}}}});
  ASSERT_EQ(spaces.size(), 2U);
  EXPECT_EQ(spaces[0].displayUUID, "Other");
  EXPECT_EQ(spaces[1].uuid, "B");
}

TEST_F(SpaceObserverTest, CountsADesktopNoLongerThatHasLostItsIdentifier) {
  readSpaces(Value::Array{space(1), space(2), space(3)});
  EXPECT_EQ(readSpaces(Value::Array{space(1), Value::Dictionary{}, space(3)}).size(), 2U);
  const auto& spaces = readSpaces(Value::Array{space(1), Value::Dictionary{}, space(4)});
  ASSERT_EQ(spaces.size(), 2U);
  EXPECT_EQ(spaces[0].spaceID, 1U);
  EXPECT_EQ(spaces[1].spaceID, 4U);
}

TEST_F(SpaceObserverTest, GivesTheListAgainWhereSomebodyElseHasGivenAnother) {
  const auto& spaces = readSpaces(Value::Array{space(1), Value::Dictionary{}, space(2), space(3)});
  SpaceManager::shared().update({SpaceInfo{7, "G", "Main", 0}}, 7);
  refreshed();
  ASSERT_EQ(spaces.size(), 3U);
  EXPECT_EQ(spaces[2].spaceID, 3U);
}

TEST_F(SpaceObserverTest, ReadsTheListFromWithinTheNewsOfAnother) {
  refreshed();
  const auto observation = platform().notifications().defaultCenter().observe(SpaceManager::didChange, [this] {
    if (SpaceManager::shared().spaces().size() == 1) {
      readSpaces(Value::Array{space(1), space(2)});
    }
  });
  const auto& spaces = readSpaces(Value::Array{space(1)});
  EXPECT_EQ(spaces.size(), 2U);
  EXPECT_EQ(readSpaces(Value::Array{space(1), space(2), space(3)}).size(), 3U);
  EXPECT_EQ(readSpaces(Value::Array{space(3)}).size(), 2U);
}

TEST_F(SpaceObserverTest, GivesTheListAgainWhereSomebodyElseHasGivenAnotherFromWithinItsNews) {
  refreshed();
  bool answered = false;
  const auto observation = platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&answered] {
    if (!std::exchange(answered, true)) {
      SpaceManager::shared().update({SpaceInfo{7, "G", "Main", 0}}, 7);
    }
  });
  ASSERT_EQ(readSpaces(Value::Array{space(1), space(2)}).front().spaceID, 7U);
  EXPECT_EQ(refreshed().size(), 2U);
}

TEST_F(SpaceObserverTest, TakesASpaceWithoutTypeForARegularOne) {
  const auto& spaces = readSpaces(Value::Array{space(1), Value::Dictionary{{"id64", 2}, {"type", "4"}},
                                               Value::Dictionary{{"id64", 3}, {"type", -2}}});
  EXPECT_EQ(spaces[0].type, 0);
  EXPECT_EQ(spaces[1].type, 0);
  EXPECT_EQ(spaces[2].type, -2);
}

TEST_F(SpaceObserverTest, KeepsTheLargestIdentifier) {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(readSpaces(Value::Array{space(largest)})[0].spaceID, static_cast<platform::SpaceID>(largest));
}

TEST_F(SpaceObserverTest, ReadsNoOtherKey) {
  const Value current = Value::Dictionary{{"ManagedSpaceID", 2}};
  read(Value::Array{Value::Dictionary{{"Current Space", current}, {"Spaces", Value::Array{space(1), space(2)}}}});
  EXPECT_EQ(SpaceManager::shared().activeSpaceID(), desktop.activeSpace());
}

TEST_F(SpaceObserverTest, TellsThatTheListHasGone) {
  refreshed();
  int changes = 0;
  const auto observation =
      platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&changes] { ++changes; });
  read(Value("malformed"));
  EXPECT_EQ(changes, 1);
  read(Value());
  EXPECT_EQ(changes, 1);
}

using SpaceObserverDeathTest = SpaceObserverTest;

TEST_F(SpaceObserverDeathTest, StopsTheProgramAtANegativeIdentifier) {
  EXPECT_DEATH(readSpaces(Value::Array{space(-1)}), "negative space identifier");
  EXPECT_DEATH(readSpaces(Value::Array{Value::Dictionary{{"id64", -7}}}), "negative space identifier");
}

TEST_F(SpaceObserverTest, TakesNoBooleanForANumber) {
  const auto& spaces =
      readSpaces(Value::Array{Value::Dictionary{{"ManagedSpaceID", true}}, Value::Dictionary{{"id64", false}},
                              Value::Dictionary{{"ManagedSpaceID", true}, {"id64", 7}, {"type", true}}});
  ASSERT_EQ(spaces.size(), 1U);
  EXPECT_EQ(spaces[0].spaceID, 7U);
  EXPECT_EQ(spaces[0].type, 0);
}

TEST_F(SpaceObserverTest, TakesZeroForAnIdentifierLikeAnyOther) {
  const auto& spaces =
      readSpaces(Value::Array{Value::Dictionary{{"ManagedSpaceID", 0}, {"id64", 9}}, Value::Dictionary{{"id64", 0}}});
  ASSERT_EQ(spaces.size(), 2U);
  for (const SpaceInfo& space : spaces) {
    EXPECT_EQ(space.spaceID, 0U);
    EXPECT_EQ(space.uuid, "space-0");
  }
}

TEST_F(SpaceObserverTest, LeavesTheOtherIdentifierAloneWhereTheFirstServes) {
  const auto& spaces = readSpaces(Value::Array{Value::Dictionary{{"ManagedSpaceID", 8}, {"id64", -9}}});
  ASSERT_EQ(spaces.size(), 1U);
  EXPECT_EQ(spaces[0].spaceID, 8U);
}

}  // namespace
}  // namespace roomlattice

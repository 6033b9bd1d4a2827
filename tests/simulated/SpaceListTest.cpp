#include "platform/simulated/SpaceList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using platform::Value;
using platform::simulated::Space;

namespace spaceType = platform::simulated::spaceType;

/// Display "A" with 1, 2 and the full-screen 3, display "B" with 4 and 5.
class SpaceListTest : public ::testing::Test {
 protected:
  SpaceListTest() {
    spaces_.addDisplay("A");
    spaces_.addDisplay("B");
    spaces_.insert(0, {.id = 1, .uuid = "one"});
    spaces_.insert(0, {.id = 2, .uuid = "two"});
    spaces_.insert(0, {.id = 3, .uuid = "three", .type = spaceType::fullScreen});
    spaces_.insert(1, {.id = 4, .uuid = "four"});
    spaces_.insert(1, {.id = 5, .uuid = "five"});
  }

  static std::vector<SpaceID> identifiers(const std::vector<Space>& spaces) {
    std::vector<SpaceID> identifiers;
    std::ranges::transform(spaces, std::back_inserter(identifiers), &Space::id);
    return identifiers;
  }

  platform::simulated::SpaceList spaces_;
};

TEST_F(SpaceListTest, ListsSpacesByDisplayAndThenByPosition) {
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{1, 2, 3, 4, 5}));
  EXPECT_EQ(identifiers(spaces_.regular()), (std::vector<SpaceID>{1, 2, 4, 5}));
}

TEST_F(SpaceListTest, StartsWithTheFirstSpaceOfEachDisplayInFront) {
  EXPECT_EQ(spaces_.displays()[0].active, 1U);
  EXPECT_EQ(spaces_.displays()[1].active, 4U);
  EXPECT_EQ(spaces_.activeSpace(), 1U);
}

TEST_F(SpaceListTest, InsertsAtAPosition) {
  spaces_.insert(0, {.id = 6}, 1);
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{1, 6, 2, 3, 4, 5}));
}

TEST_F(SpaceListTest, InsertsAtTheEndBeyondTheLastPosition) {
  spaces_.insert(0, {.id = 6}, 99);
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{1, 2, 3, 6, 4, 5}));
}

TEST_F(SpaceListTest, GivesTheKeyboardToTheDisplayOfTheSpaceThatIsActivated) {
  spaces_.activate(5);
  EXPECT_EQ(spaces_.activeSpace(), 5U);
  EXPECT_EQ(spaces_.keyboardDisplay(), 1U);
  EXPECT_EQ(spaces_.displays()[0].active, 1U);
}

TEST_F(SpaceListTest, ChangesTheActiveSpaceWithTheKeyboard) {
  spaces_.giveKeyboardTo(1);
  EXPECT_EQ(spaces_.activeSpace(), 4U);
}

TEST_F(SpaceListTest, BringsTheSpaceBeforeARemovedActiveOneToTheFront) {
  spaces_.activate(2);
  spaces_.remove(2);
  EXPECT_EQ(spaces_.activeSpace(), 1U);
}

TEST_F(SpaceListTest, BringsTheNextSpaceToTheFrontWhenTheFirstIsRemoved) {
  spaces_.remove(1);
  EXPECT_EQ(spaces_.activeSpace(), 2U);
}

TEST_F(SpaceListTest, KeepsTheActiveSpaceWhenAnotherIsRemoved) {
  spaces_.remove(2);
  EXPECT_EQ(spaces_.activeSpace(), 1U);
  EXPECT_FALSE(spaces_.find(2).has_value());
}

TEST_F(SpaceListTest, HasNoActiveSpaceOnAnEmptyDisplay) {
  spaces_.giveKeyboardTo(1);
  spaces_.remove(4);
  spaces_.remove(5);
  EXPECT_EQ(spaces_.activeSpace(), 0U);
  spaces_.insert(1, {.id = 6});
  EXPECT_EQ(spaces_.activeSpace(), 6U);
}

TEST_F(SpaceListTest, MovesSpacesWithinTheirDisplay) {
  spaces_.move(1, 2);
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{2, 3, 1, 4, 5}));
  spaces_.move(1, 0);
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{1, 2, 3, 4, 5}));
  spaces_.move(4, 99);
  EXPECT_EQ(identifiers(spaces_.all()), (std::vector<SpaceID>{1, 2, 3, 5, 4}));
  EXPECT_EQ(spaces_.activeSpace(), 1U);
}

TEST_F(SpaceListTest, KeepsTheKeyboardWhereItIsWhenAnotherDisplayGoes) {
  spaces_.activate(5);
  spaces_.removeDisplay(0);
  EXPECT_EQ(spaces_.activeSpace(), 5U);
}

TEST_F(SpaceListTest, MovesTheKeyboardToTheFirstDisplayWhenItsOwnGoes) {
  spaces_.activate(5);
  spaces_.removeDisplay(1);
  EXPECT_EQ(spaces_.activeSpace(), 1U);
  spaces_.removeDisplay(0);
  EXPECT_EQ(spaces_.activeSpace(), 0U);
}

TEST_F(SpaceListTest, IgnoresWhatItDoesNotKnow) {
  const platform::simulated::SpaceList before = spaces_;
  spaces_.activate(99);
  spaces_.remove(99);
  spaces_.move(99, 0);
  spaces_.giveKeyboardTo(9);
  spaces_.removeDisplay(9);
  spaces_.insert(9, {.id = 6});
  EXPECT_EQ(spaces_, before);
}

TEST_F(SpaceListTest, TellsOfDisplaysAndSpacesInTheWindowServersForm) {
  const auto space = [](int id, const char* uuid, int type) {
    return Value::Dictionary{{"ManagedSpaceID", id}, {"uuid", uuid}, {"type", type}};
  };
  const Value expected = Value::Array{
      Value::Dictionary{{"Display Identifier", "A"},
                        {"Spaces", Value::Array{space(1, "one", 0), space(2, "two", 0), space(3, "three", 4)}}},
      Value::Dictionary{{"Display Identifier", "B"},
                        {"Spaces", Value::Array{space(4, "four", 0), space(5, "five", 0)}}},
  };
  EXPECT_EQ(spaces_.managedDisplaySpaces(), expected);
}

}  // namespace
}  // namespace roomlattice::tests

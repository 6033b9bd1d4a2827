#include "spaces/SpaceTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace roomlattice {
namespace {

constexpr std::int64_t regularType = 0;
constexpr std::int64_t fullScreenType = 4;

SpaceInfo madeSpace(platform::SpaceID identifier, const std::string& display = "Main",
                    std::int64_t type = regularType) {
  return {.spaceID = identifier, .uuid = "uuid-" + std::to_string(identifier), .displayUUID = display, .type = type};
}

class SpaceTableTest : public ::testing::Test {
 protected:
  void set(std::vector<SpaceInfo> spaces) { table_.replace(0, table_.spaces().size(), std::move(spaces)); }

  std::vector<int> overall() const { return numbers(&SpaceTable::Numbers::overall); }
  std::vector<int> onDisplays() const { return numbers(&SpaceTable::Numbers::onDisplay); }

  /// The places of the rows that have changed since then.
  std::vector<std::size_t> changedSince(SpaceTable::Moment moment) const {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < table_.rows().size(); ++place) {
      if (table_.rows()[place].changedAt > moment) {
        places.push_back(place);
      }
    }
    return places;
  }

  SpaceTable table_;

 private:
  std::vector<int> numbers(int SpaceTable::Numbers::*member) const {
    std::vector<int> numbers;
    for (const SpaceTable::Row& row : table_.rows()) {
      numbers.push_back(row.numbers.*member);
    }
    return numbers;
  }
};

using Numbers = std::vector<int>;
using Indices = std::vector<std::size_t>;

TEST_F(SpaceTableTest, NumbersRegularDesktopsOverallAndOnTheirDisplay) {
  set({madeSpace(1), madeSpace(2, "Main", fullScreenType), madeSpace(3), madeSpace(4, "Other"), madeSpace(5)});
  EXPECT_EQ(overall(), (Numbers{1, 0, 2, 3, 4}));
  EXPECT_EQ(onDisplays(), (Numbers{1, 0, 2, 1, 3}));
}

TEST_F(SpaceTableTest, FindsTheFirstOfAKind) {
  SpaceInfo alike = madeSpace(1, "Other");
  alike.uuid = madeSpace(2).uuid;
  set({madeSpace(2, "Main", fullScreenType), madeSpace(1), alike});
  EXPECT_EQ(table_.first(1), &table_.spaces()[1]);
  EXPECT_EQ(table_.first(2), &table_.spaces()[0]);
  EXPECT_EQ(table_.first(3), nullptr);
  EXPECT_EQ(table_.firstRegular("uuid-2"), &table_.spaces()[2]);
  EXPECT_EQ(table_.firstRegular("uuid-3"), nullptr);
}

TEST_F(SpaceTableTest, TellsWhichDesktopsAnAdditionHasChanged) {
  set({madeSpace(1), madeSpace(2), madeSpace(3)});
  const SpaceTable::Moment before = table_.now();
  table_.replace(3, 0, {madeSpace(4)});
  EXPECT_EQ(changedSince(before), Indices{3});
  const SpaceTable::Moment then = table_.now();
  table_.replace(1, 0, {madeSpace(5, "Main", fullScreenType)});
  EXPECT_EQ(changedSince(then), Indices{1});
  EXPECT_EQ(changedSince(before), (Indices{1, 4}));
  EXPECT_EQ(table_.listChangedAt(), table_.now());
}

TEST_F(SpaceTableTest, TellsWhichDesktopsHaveOtherNumbersAfterARemoval) {
  set({madeSpace(1), madeSpace(2), madeSpace(3), madeSpace(4)});
  const SpaceTable::Moment before = table_.now();
  table_.replace(1, 1, {});
  EXPECT_EQ(changedSince(before), (Indices{1, 2}));
}

TEST_F(SpaceTableTest, TellsWhichDesktopsHaveOtherNumbersOnlyOnTheirDisplay) {
  set({madeSpace(1), madeSpace(2), madeSpace(3, "Other")});
  const SpaceTable::Moment before = table_.now();
  table_.replace(0, 1, {madeSpace(1, "Other")});
  EXPECT_EQ(onDisplays(), (Numbers{1, 1, 2}));
  EXPECT_EQ(changedSince(before), (Indices{0, 1, 2}));
}

TEST_F(SpaceTableTest, GivesWhatHasReallyChanged) {
  set({madeSpace(1), madeSpace(2), madeSpace(3)});
  const SpaceTable::Moment before = table_.now();
  EXPECT_TRUE(table_.replace(1, 2, {madeSpace(2), madeSpace(3)}).empty());
  EXPECT_EQ(table_.now(), before);
  const Difference difference = table_.replace(0, 3, {madeSpace(1), madeSpace(7), madeSpace(3)});
  EXPECT_EQ(difference.first, 1U);
  EXPECT_EQ(difference.before, 1U);
  EXPECT_EQ(difference.after, 1U);
  EXPECT_EQ(changedSince(before), Indices{1});
}

TEST_F(SpaceTableTest, TellsWhichDesktopsHaveOtherNames) {
  SpaceInfo alike = madeSpace(9);
  alike.uuid = madeSpace(2).uuid;
  set({madeSpace(1), madeSpace(2), alike});
  const SpaceTable::Moment list = table_.listChangedAt();
  table_.renamed("uuid-2");
  EXPECT_EQ(changedSince(list), (Indices{1, 2}));
  EXPECT_EQ(table_.listChangedAt(), list);
  table_.renamed("nobody's");
  EXPECT_EQ(changedSince(list), (Indices{1, 2}));
}

/// Desktops of some displays and types; hardly ever two alike.
std::vector<SpaceInfo> chosenBy(std::mt19937& random) {
  std::vector<SpaceInfo> spaces;
  for (std::size_t count = random() % 4; count > 0; --count) {
    spaces.push_back(madeSpace(random() % 40, "display " + std::to_string(random() % 3),
                               random() % 4 == 0 ? fullScreenType : regularType));
  }
  return spaces;
}

TEST_F(SpaceTableTest, IsAfterManyChangesAsOneThatIsMadeAnew) {
  std::mt19937 random(7);
  std::vector<SpaceInfo> spaces;
  for (int change = 0; change < 2000; ++change) {
    const std::size_t first = random() % (spaces.size() + 1);
    const std::size_t count = std::min<std::size_t>(random() % 4, spaces.size() - first);
    const std::vector<SpaceInfo> by = chosenBy(random);
    const auto at = spaces.begin() + static_cast<std::ptrdiff_t>(first);
    spaces.insert(spaces.erase(at, at + static_cast<std::ptrdiff_t>(count)), by.begin(), by.end());
    table_.replace(first, count, by);
    ASSERT_EQ(table_.spaces(), spaces);
    SpaceTable anew;
    anew.replace(0, 0, spaces);
    for (std::size_t place = 0; place < spaces.size(); ++place) {
      const SpaceInfo& space = spaces[place];
      ASSERT_EQ(table_.rows()[place].numbers, anew.rows()[place].numbers);
      ASSERT_EQ(table_.first(space.spaceID) - table_.spaces().data(), anew.first(space.spaceID) - anew.spaces().data());
      ASSERT_EQ(table_.first(space.spaceID)->spaceID, space.spaceID);
      ASSERT_EQ(table_.firstRegular(space.uuid) == nullptr, anew.firstRegular(space.uuid) == nullptr);
    }
  }
}

}  // namespace
}  // namespace roomlattice

#include "spaces/SpaceInfo.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace roomlattice {
namespace {

const SpaceInfo space{.spaceID = 7, .uuid = "A", .displayUUID = "Main", .type = 0};

TEST(SpaceInfoTest, EqualsOnlyWhenAllFourFieldsDo) {
  EXPECT_EQ(space, (SpaceInfo{7, "A", "Main", 0}));
  EXPECT_NE(space, (SpaceInfo{8, "A", "Main", 0}));
  EXPECT_NE(space, (SpaceInfo{7, "B", "Main", 0}));
  EXPECT_NE(space, (SpaceInfo{7, "A", "Other", 0}));
  EXPECT_NE(space, (SpaceInfo{7, "A", "Main", 4}));
}

TEST(SpaceInfoTest, HashesEqualSpacesAlike) {
  const std::unordered_set<SpaceInfo> set{space, {7, "A", "Main", 0}, {7, "A", "Main", 4}};
  EXPECT_EQ(set.size(), 2U);
}

TEST(SpaceInfoTest, HashesEachOfTheFourFields) {
  const std::hash<SpaceInfo> hash;
  EXPECT_NE(hash({8, "A", "Main", 0}), hash(space));
  EXPECT_NE(hash({7, "B", "Main", 0}), hash(space));
  EXPECT_NE(hash({7, "A", "Other", 0}), hash(space));
  EXPECT_NE(hash({7, "A", "Main", 4}), hash(space));
}

TEST(SpaceInfoListTest, KeepTheOrderOfTheList) {
  const SpaceInfo first{1, "A", "Main", 0};
  const SpaceInfo fullScreen{2, "B", "Main", 4};
  const SpaceInfo odd{3, "C", "Main", -1};
  const SpaceInfo second{4, "D", "Other", 0};
  EXPECT_EQ(regularSpaces({first, fullScreen, odd, second}), (std::vector<SpaceInfo>{first, second}));
}

}  // namespace
}  // namespace roomlattice

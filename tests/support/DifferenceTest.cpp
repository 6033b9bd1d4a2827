#include "support/Difference.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace roomlattice {
namespace {

struct Lists {
  const char* name;
  std::string before;
  std::string after;
  std::size_t first;
  std::string gone;
  std::string come;
};

class DifferenceTest : public ::testing::TestWithParam<Lists> {};

TEST_P(DifferenceTest, IsWhatLiesBetweenTheCommonBeginningAndTheCommonEnd) {
  const Lists& lists = GetParam();
  const Difference difference =
      differenceOf(lists.before.size(), lists.after.size(),
                   [&](std::size_t one, std::size_t other) { return lists.before.at(one) == lists.after.at(other); });
  EXPECT_EQ(difference.first, lists.first);
  EXPECT_EQ(lists.before.substr(difference.first, difference.before), lists.gone);
  EXPECT_EQ(lists.after.substr(difference.first, difference.after), lists.come);
  EXPECT_EQ(difference.empty(), lists.before == lists.after);
}

INSTANTIATE_TEST_SUITE_P(
    OfLists, DifferenceTest,
    ::testing::Values(Lists{"BothEmpty", "", "", 0, "", ""}, Lists{"Same", "abc", "abc", 3, "", ""},
                      Lists{"FromEmpty", "", "abc", 0, "", "abc"}, Lists{"ToEmpty", "abc", "", 0, "abc", ""},
                      Lists{"AddedFirst", "bc", "abc", 0, "", "a"}, Lists{"AddedLast", "ab", "abc", 2, "", "c"},
                      Lists{"RemovedWithin", "abc", "ac", 1, "b", ""}, Lists{"Replaced", "abc", "axyc", 1, "b", "xy"},
                      Lists{"OneOfSeveralAlike", "aaa", "aa", 2, "a", ""},
                      Lists{"AllOthers", "ab", "xyz", 0, "ab", "xyz"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace roomlattice

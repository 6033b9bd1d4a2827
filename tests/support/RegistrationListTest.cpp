#include "support/RegistrationList.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Registration;

std::vector<int> contents(const RegistrationList<int>& list) {
  std::vector<int> items;
  list.forEach([&](int item) { items.push_back(item); });
  return items;
}

TEST(RegistrationListTest, HoldsItemsInOrderUntilTheirRegistrationEnds) {
  RegistrationList<int> list;
  const Registration first = list.add(1);
  Registration second = list.add(2);
  const Registration third = list.add(3);
  EXPECT_EQ(contents(list), (std::vector{1, 2, 3}));
  second.cancel();
  EXPECT_EQ(contents(list), (std::vector{1, 3}));
}

TEST(RegistrationListTest, LeavesOutWhatEndsOrBeginsDuringAVisit) {
  RegistrationList<int> list;
  const Registration first = list.add(1);
  std::optional<Registration> second(list.add(2));
  std::vector<Registration> added;
  std::vector<int> visited;
  list.forEach([&](int item) {
    visited.push_back(item);
    second.reset();
    added.push_back(list.add(3));
  });
  EXPECT_EQ(visited, std::vector{1});
  EXPECT_EQ(contents(list), (std::vector{1, 3}));
}

TEST(RegistrationListTest, MayEndBeforeItsRegistrations) {
  std::optional<RegistrationList<int>> list(std::in_place);
  Registration registration = list->add(1);
  list.reset();
  registration.cancel();
  EXPECT_FALSE(registration);
}

}  // namespace
}  // namespace roomlattice::tests

#include "platform/Registration.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace roomlattice::platform {
namespace {

Registration counting(int& ends) {
  return Registration([&ends] { ++ends; });
}

TEST(Registration, EndsWithItsScope) {
  int ends = 0;
  {
    const Registration registration = counting(ends);
    EXPECT_TRUE(registration);
    EXPECT_EQ(ends, 0);
  }
  EXPECT_EQ(ends, 1);
}

TEST(Registration, EndsOnceHoweverOftenItIsCancelled) {
  int ends = 0;
  {
    Registration registration = counting(ends);
    registration.cancel();
    EXPECT_FALSE(registration);
    registration.cancel();
  }
  EXPECT_EQ(ends, 1);
}

TEST(Registration, StandsForNothingWhenEmpty) {
  Registration registration;
  EXPECT_FALSE(registration);
  registration.cancel();
}

TEST(Registration, MovesWithoutEnding) {
  int ends = 0;
  Registration first = counting(ends);
  std::vector<Registration> registrations;
  registrations.push_back(std::move(first));
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(registrations.front());
  registrations.clear();
  EXPECT_EQ(ends, 1);
}

TEST(Registration, EndsWhatItStoodForWhenAnotherTakesItsPlace) {
  int firstEnds = 0;
  int secondEnds = 0;
  Registration registration = counting(firstEnds);
  registration = counting(secondEnds);
  EXPECT_EQ(firstEnds, 1);
  EXPECT_EQ(secondEnds, 0);
}

TEST(Registration, SurvivesBeingAssignedToItself) {
  int ends = 0;
  Registration registration = counting(ends);
  Registration& same = registration;
  registration = std::move(same);
  EXPECT_TRUE(registration);
  EXPECT_EQ(ends, 0);
}

TEST(Registration, MayBeCancelledByItsOwnEnd) {
  int ends = 0;
  Registration registration;
  registration = Registration([&] {
    ++ends;
    registration.cancel();
  });
  registration.cancel();
  EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace roomlattice::platform

#include "platform/Registration.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace roomlattice::platform {
namespace {

Registration counting(int& ends) {
  return Registration([&ends] { ++ends; });
}

TEST(RegistrationTest, EndsWithItsScope) {
  int ends = 0;
  {
    const Registration registration = counting(ends);
    EXPECT_TRUE(registration);
    EXPECT_EQ(ends, 0);
  }
  EXPECT_EQ(ends, 1);
}

TEST(RegistrationTest, EndsOnceHoweverOftenItIsCancelled) {
  int ends = 0;
  {
    Registration registration = counting(ends);
    registration.cancel();
    EXPECT_FALSE(registration);
    registration.cancel();
  }
  EXPECT_EQ(ends, 1);
}

TEST(RegistrationTest, StandsForNothingWhenEmpty) {
  Registration registration;
  EXPECT_FALSE(registration);
  registration.cancel();
}

TEST(RegistrationTest, MovesWithoutEnding) {
  int ends = 0;
  Registration first = counting(ends);
  std::vector<Registration> registrations;
  registrations.push_back(std::move(first));
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(registrations.front());
  registrations.clear();
  EXPECT_EQ(ends, 1);
}

TEST(RegistrationTest, EndsWhatItStoodForWhenAnotherTakesItsPlace) {
  int firstEnds = 0;
  int secondEnds = 0;
  Registration registration = counting(firstEnds);
  registration = counting(secondEnds);
  EXPECT_EQ(firstEnds, 1);
  EXPECT_EQ(secondEnds, 0);
}

TEST(RegistrationTest, SurvivesBeingAssignedToItself) {
  int ends = 0;
  Registration registration = counting(ends);
  Registration& same = registration;
  registration = std::move(same);
  EXPECT_TRUE(registration);
  EXPECT_EQ(ends, 0);
}

TEST(RegistrationTest, MayBeCancelledByItsOwnEnd) {
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

#include "tests/spaces/SpaceManagerFixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Duration;
using platform::EventField;
using platform::simulated::NewSpace;
using platform::simulated::spaceType::fullScreen;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

PostedEvent dockSwipe(Duration at, std::int64_t phase, double progress, double velocity) {
  return {.at = at,
          .fields = {{EventField::Kind, std::int64_t{30}},
                     {EventField::GestureKind, std::int64_t{23}},
                     {EventField::Phase, phase},
                     {EventField::Progress, progress},
                     {EventField::SwipeAxis, std::int64_t{1}},
                     {EventField::Velocity, velocity},
                     {EventField::SecondaryVelocity, velocity}}};
}

std::vector<PostedEvent> animatedSwipe(Duration start, double sign) {
  std::vector<PostedEvent> events = {dockSwipe(start, 1, sign * 0.001, sign * 0.5)};
  for (int i = 1; i <= 8; ++i) {
    events.push_back(dockSwipe(start + i * 18ms, 2, sign * i / 8.0, sign * 1.5));
  }
  events.push_back(dockSwipe(start + 162ms, 4, sign * 1.0, sign * 1.5));
  return events;
}

std::vector<PostedEvent> instantSwipe(Duration start, double sign) {
  const double progress = sign * std::ldexp(1.0, -149);
  return {dockSwipe(start, 1, progress, sign * 400.0), dockSwipe(start, 2, progress, sign * 400.0),
          dockSwipe(start, 4, progress, sign * 400.0)};
}

class SpaceManagerSwitchingTest : public SpaceManagerFixture {
 protected:
  explicit SpaceManagerSwitchingTest(int desktops = 4) : SpaceManagerFixture(desktops) {}

  void switchTo(const SpaceInfo& space) { manager.switchToSpace(space, style); }

  void prefersInstant() { style = SwitchStyle::Instant; }

  SwitchStyle style = SwitchStyle::Animated;

  void startsOn(std::size_t index) {
    desktop.switchTo(desktop.desktopAt(index));
    follow();
  }
};

TEST_F(SpaceManagerSwitchingTest, FieldsHaveTheNumbersOfTheWindowServer) {
  startsOn(0);
  switchTo(regularSpace(1));
  desktop.advance(0s);
  std::vector<std::uint32_t> numbers;
  for (const auto& [field, value] : recorder.posted().at(0).fields) {
    numbers.push_back(static_cast<std::uint32_t>(field));
  }
  EXPECT_THAT(numbers, ElementsAre(55U, 110U, 132U, 124U, 123U, 129U, 130U));
}

TEST_F(SpaceManagerSwitchingTest, AnimatedSwipeToTheRightIsTenEventsOver162Milliseconds) {
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(1));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), ElementsAreArray(animatedSwipe(start, 1.0)));
}

TEST_F(SpaceManagerSwitchingTest, AnimatedSwipeToTheLeftHasNegativeProgressAndVelocity) {
  startsOn(1);
  const Duration start = desktop.now();
  switchTo(regularSpace(0));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), ElementsAreArray(animatedSwipe(start, -1.0)));
}

TEST_F(SpaceManagerSwitchingTest, InstantSwipeToTheRightIsThreeEventsAtOnce) {
  prefersInstant();
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(1));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), ElementsAreArray(instantSwipe(start, 1.0)));
}

TEST_F(SpaceManagerSwitchingTest, InstantSwipeToTheLeftHasNegativeProgressAndVelocity) {
  prefersInstant();
  startsOn(1);
  const Duration start = desktop.now();
  switchTo(regularSpace(0));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), ElementsAreArray(instantSwipe(start, -1.0)));
}

TEST_F(SpaceManagerSwitchingTest, InstantProgressIsTheSmallestPositiveSinglePrecisionValue) {
  prefersInstant();
  startsOn(0);
  switchTo(regularSpace(1));
  desktop.advance(0s);
  const double progress = std::get<double>(recorder.posted().at(0).fields.at(3).second);
  EXPECT_GT(static_cast<float>(progress), 0.0F);
  EXPECT_EQ(std::nextafter(static_cast<float>(progress), 0.0F), 0.0F);
  EXPECT_EQ(progress, 1.401298464324817e-45);
}

TEST_F(SpaceManagerSwitchingTest, AnimatedStepsAre220MillisecondsApart) {
  startsOn(3);
  const Duration start = desktop.now();
  switchTo(regularSpace(0));
  desktop.advance(5s);
  std::vector<PostedEvent> expected;
  for (int step = 0; step < 3; ++step) {
    std::ranges::copy(animatedSwipe(start + step * 220ms, -1.0), std::back_inserter(expected));
  }
  EXPECT_THAT(recorder.posted(), ElementsAreArray(expected));
}

TEST_F(SpaceManagerSwitchingTest, InstantStepsAre50MillisecondsApart) {
  prefersInstant();
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(3));
  desktop.advance(5s);
  std::vector<PostedEvent> expected;
  for (int step = 0; step < 3; ++step) {
    std::ranges::copy(instantSwipe(start + step * 50ms, 1.0), std::back_inserter(expected));
  }
  EXPECT_THAT(recorder.posted(), ElementsAreArray(expected));
}

TEST_F(SpaceManagerSwitchingTest, PostsNothingBeforeTheCallReturns) {
  startsOn(0);
  switchTo(regularSpace(1));
  prefersInstant();
  switchTo(regularSpace(1));
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, MakesAllStepsInTheStyleOfTheCall) {
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(2));
  prefersInstant();
  desktop.advance(5s);
  std::vector<PostedEvent> expected = animatedSwipe(start, 1.0);
  std::ranges::copy(animatedSwipe(start + 220ms, 1.0), std::back_inserter(expected));
  EXPECT_THAT(recorder.posted(), ElementsAreArray(expected));
}

TEST_F(SpaceManagerSwitchingTest, CountsDelaysFromTheSchedulingAndNotFromTheEventBefore) {
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(1));
  desktop.advance(0s);
  desktop.time().block(50ms);
  desktop.advance(5s);
  std::vector<PostedEvent> expected = animatedSwipe(start, 1.0);
  expected[1].at = start + 50ms;
  expected[2].at = start + 50ms;
  EXPECT_THAT(recorder.posted(), ElementsAreArray(expected));
}

TEST_F(SpaceManagerSwitchingTest, FixesTheStepsAtTheCall) {
  desktop.faults.allSwipesDropped = true;
  startsOn(0);
  switchTo(regularSpace(3));
  desktop.advance(100ms);
  desktop.switchTo(desktop.desktopAt(3));
  desktop.advance(5s);
  EXPECT_EQ(directions(), "RRR");
}

TEST_F(SpaceManagerSwitchingTest, CrossesDisplaysInListOrder) {
  desktop.addDisplay("Display 2", 3);
  startsOn(2);
  switchTo(regularSpace(5));
  desktop.advance(5s);
  EXPECT_EQ(directions(), "RRR");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(5));
}

TEST_F(SpaceManagerSwitchingTest, LeavesFullScreenSpacesOutOfTheCount) {
  desktop.addDesktop(NewSpace{.type = fullScreen, .position = 1});
  desktop.addDesktop(NewSpace{.type = fullScreen, .position = 3});
  startsOn(3);
  switchTo(regularSpace(0));
  desktop.advance(5s);
  EXPECT_EQ(directions(), "LLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SpaceManagerSwitchingTest, KnowsTheTargetByItsIdentifierAlone) {
  startsOn(0);
  switchTo({.spaceID = desktop.desktopAt(2), .uuid = "another", .displayUUID = "another", .type = 4});
  desktop.advance(5s);
  EXPECT_EQ(directions(), "RR");
}

TEST_F(SpaceManagerSwitchingTest, CountsFromTheFirstOfTwoDesktopsWithOneIdentifier) {
  const std::vector<SpaceInfo> spaces = {
      {1, "A", "Main", 0}, {2, "B", "Main", 0}, {2, "C", "Main", 0}, {3, "D", "Main", 0}};
  manager.update(spaces, 1);
  switchTo({.spaceID = 2});
  desktop.advance(5s);
  EXPECT_EQ(directions(), "R");
  manager.update(spaces, 2);
  switchTo({.spaceID = 3});
  desktop.advance(5s);
  EXPECT_EQ(directions(), "RRR");
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingTowardsTheActiveDesktop) {
  startsOn(2);
  switchTo(regularSpace(2));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingTowardsAFullScreenSpace) {
  const platform::SpaceID space = desktop.addDesktop(NewSpace{.type = fullScreen});
  startsOn(0);
  switchTo({.spaceID = space, .type = 0});
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingTowardsAnUnknownDesktop) {
  startsOn(0);
  switchTo({.spaceID = 999});
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingFromAFullScreenSpace) {
  follow();
  desktop.enterFullScreen();
  switchTo(regularSpace(2));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingWhileTheActiveDesktopIsUnknown) {
  follow();
  manager.update(manager.spaces(), 999);
  switchTo(regularSpace(2));
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, DoesNothingWithoutDesktops) {
  manager.update({}, desktop.activeSpace());
  switchTo({.spaceID = desktop.desktopAt(1)});
  desktop.advance(5s);
  EXPECT_THAT(recorder.posted(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, LeavesOutOnlyTheEventThatCannotBeMade) {
  startsOn(0);
  for (int failing = 0; failing < 10; ++failing) {
    const Duration start = desktop.now();
    const auto before = static_cast<std::ptrdiff_t>(recorder.posted().size());
    desktop.after(failing * 18ms - 1us, [this] { desktop.faults.eventsNotCreated = 1; });
    switchTo(regularSpace(1));
    desktop.advance(200ms);
    std::vector<PostedEvent> expected = animatedSwipe(start, 1.0);
    expected.erase(expected.begin() + failing);
    EXPECT_EQ(std::vector(recorder.posted().begin() + before, recorder.posted().end()), expected) << failing;
    desktop.advance(5s);
    desktop.switchTo(desktop.desktopAt(0));
  }
}

TEST_F(SpaceManagerSwitchingTest, InstantSwipeGoesOnAfterAnEventThatCannotBeMade) {
  prefersInstant();
  startsOn(0);
  const Duration start = desktop.now();
  switchTo(regularSpace(1));
  desktop.faults.eventsNotCreated = 1;
  desktop.advance(5s);
  std::vector<PostedEvent> expected = instantSwipe(start, 1.0);
  expected.erase(expected.begin());
  EXPECT_THAT(recorder.posted(), ElementsAreArray(expected));
}

TEST_F(SpaceManagerSwitchingTest, ArrivesAtTheTarget) {
  startsOn(3);
  switchTo(regularSpace(1));
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SpaceManagerSwitchingTest, ArrivesAtTheTargetByInstantSwipes) {
  prefersInstant();
  startsOn(0);
  switchTo(regularSpace(3));
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(3));
}

TEST_F(SpaceManagerSwitchingTest, StaysWhereItIsWithoutPermission) {
  desktop.faults.accessibilityDenied = true;
  startsOn(0);
  switchTo(regularSpace(3));
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_THAT(desktop.log().texts(), IsEmpty());
}

TEST_F(SpaceManagerSwitchingTest, StopsPostingWhenTheModelGoes) {
  follow();
  std::optional<SpaceManager> brief(std::in_place, recorder);
  brief->update(manager.spaces(), manager.activeSpaceID());
  brief->switchToSpace(regularSpace(3), SwitchStyle::Animated);
  desktop.advance(100ms);
  const std::size_t before = recorder.posted().size();
  brief.reset();
  desktop.advance(5s);
  EXPECT_EQ(recorder.posted().size(), before);
}

}  // namespace
}  // namespace roomlattice::tests

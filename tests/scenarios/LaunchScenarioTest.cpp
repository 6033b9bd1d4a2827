#include "tests/scenarios/ScenarioFixture.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using platform::simulated::SimulatedWindow;
using platform::simulated::Space;
using platform::simulated::spaceType::fullScreen;
using ::testing::Combine;
using ::testing::IsEmpty;
using ::testing::Range;

/// So many desktops, dealt out to so many displays, with a full-screen space after every second one; started on one in
/// the middle.
class LaunchScenarioTest : public ScenarioFixture, public ::testing::WithParamInterface<std::tuple<int, int>> {
 protected:
  LaunchScenarioTest() : ScenarioFixture(0) {
    const auto [displays, desktops] = GetParam();
    for (int display = 1; display < displays; ++display) {
      desktop.addDisplay("Display " + std::to_string(display + 1), 0);
    }
    for (int made = 0; made < desktops; ++made) {
      const auto display = static_cast<std::size_t>(made * displays / desktops);
      desktop.addDesktop({.display = display});
      if (made % 2 == 1) {
        desktop.addDesktop({.type = fullScreen, .display = display});
      }
    }
    start = desktop.desktopAt(desktopCount() / 2);
    desktop.switchTo(start);
  }

  std::size_t desktopCount() const { return static_cast<std::size_t>(std::get<1>(GetParam())); }
  std::size_t steps() const { return 2 * (desktopCount() - 1); }
  bool toursAtAll() const { return desktopCount() > 1; }

  void expectOneTourAtMost() {
    EXPECT_EQ(toursStarted(), toursAtAll() ? 1 : 0);
    EXPECT_EQ(toursEnded(), toursStarted());
    EXPECT_THAT(tourOverlaysOf(desktop), IsEmpty());
  }

  /// The label in front hidden, and those of all other desktops primed.
  void expectALabelOnEveryDesktop() {
    for (const Space& space : desktop.spaces().regular()) {
      const SimulatedWindow* const label = labelOn(desktop, space.id);
      ASSERT_NE(label, nullptr) << space.id;
      EXPECT_EQ(label->alpha(), space.id == start ? 0.0 : 0.78) << space.id;
    }
    EXPECT_EQ(labelsOf(desktop).size(), desktopCount());
  }

  std::vector<std::string> logLines() { return desktop.log().texts(); }

  SpaceID start = 0;
};

INSTANTIATE_TEST_SUITE_P(Layouts, LaunchScenarioTest, Combine(Range(1, 4), Range(1, 13)), [](const auto& layout) {
  return "Displays" + std::to_string(std::get<0>(layout.param)) + "Desktops" +
         std::to_string(std::get<1>(layout.param));
});

TEST_P(LaunchScenarioTest, LeavesALabelOnEveryDesktopAndReturns) {
  startAndTour();
  expectOneTourAtMost();
  expectALabelOnEveryDesktop();
  EXPECT_EQ(desktop.activeSpace(), start);
  EXPECT_EQ(logLines().size(), toursAtAll() ? 2U : 0U);
}

TEST_P(LaunchScenarioTest, ShowsTheOverlayOnEveryDesktopAndNoLabelWhileItTours) {
  startProgram();
  desktop.advance(1500ms);
  while (toursStarted() > toursEnded()) {
    ASSERT_EQ(tourOverlaysOf(desktop).size(), 1U);
    EXPECT_TRUE(tourOverlaysOf(desktop).front()->isOn(desktop.activeSpace()));
    for (const SimulatedWindow* label : labelsOf(desktop)) {
      EXPECT_EQ(label->alpha(), 0.0);
    }
    desktop.advance(100ms);
  }
  desktop.advance(250ms);
  EXPECT_THAT(tourOverlaysOf(desktop), IsEmpty());
}

TEST_P(LaunchScenarioTest, ReturnsAlsoWhenEveryArrivalIsReportedThreeTimes) {
  desktop.faults.extraActiveSpaceNotices = 2;
  startAndTour();
  expectOneTourAtMost();
  expectALabelOnEveryDesktop();
  EXPECT_EQ(desktop.activeSpace(), start);
  EXPECT_EQ(logLines().size(), toursAtAll() ? 2U : 0U);
}

TEST_P(LaunchScenarioTest, ReturnsAlsoWhenTheDesktopsAreSlow) {
  desktop.faults.swipesDelayedBy = 400ms;
  startAndTour();
  expectOneTourAtMost();
  expectALabelOnEveryDesktop();
  EXPECT_EQ(desktop.activeSpace(), start);
  EXPECT_EQ(logLines().size(), toursAtAll() ? 2U : 0U);
}

TEST_P(LaunchScenarioTest, ReturnsAlsoWhenASwipeNowAndThenIsDropped) {
  for (const auto at : {1600ms, 5100ms, 9200ms}) {
    desktop.after(at, [this] { desktop.faults.swipesDropped = 1; });
  }
  startAndTour();
  desktop.faults.swipesDropped = 0;
  expectOneTourAtMost();
  expectALabelOnEveryDesktop();
  EXPECT_EQ(desktop.activeSpace(), start);
}

// A repeated swipe then moves one desktop too far: the way is lost, and yet every rule holds.
TEST_P(LaunchScenarioTest, EndsAlsoWhenEverySwipeArrivesAfterItsRepetition) {
  desktop.faults.swipesDelayedBy = 1s;
  startAndTour();
  desktop.advance(5s);
  expectOneTourAtMost();
  for (const SimulatedWindow* label : labelsOf(desktop)) {
    EXPECT_EQ(label->alpha(), label->isOn(desktop.activeSpace()) ? 0.0 : 0.78);
  }
}

TEST_P(LaunchScenarioTest, GoesNowhereWithoutPermissionAndStops) {
  desktop.faults.accessibilityDenied = true;
  startProgram();
  desktop.advance(21500ms);
  EXPECT_EQ(toursEnded(), toursAtAll() ? 1 : 0);
  desktop.advance(1s);
  expectOneTourAtMost();
  EXPECT_EQ(desktop.activeSpace(), start);
  ASSERT_EQ(labelsOf(desktop).size(), 1U);
  EXPECT_TRUE(labelsOf(desktop).front()->isOn(start));
  const bool cutOff = logged("[Roomlattice] tour hard timeout after 20s, forcing end") == 1;
  EXPECT_EQ(cutOff, steps() >= 10);
}

TEST_P(LaunchScenarioTest, SkipsTheRestOnceThePermissionIsTaken) {
  startProgram();
  desktop.advance(2s);
  desktop.faults.accessibilityDenied = true;
  desktop.advance(30s);
  expectOneTourAtMost();
  desktop.faults.accessibilityDenied = false;
  desktop.advance(30s);
  expectOneTourAtMost();
}

}  // namespace
}  // namespace roomlattice::tests

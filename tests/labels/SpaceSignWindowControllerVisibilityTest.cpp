#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::simulated::SimulatedWindow;
using ::testing::ElementsAre;

using SpaceSignWindowControllerVisibilityTest = LabelFixture;

// --- Showing all

TEST_F(SpaceSignWindowControllerVisibilityTest, HidesTheLabelInFrontAtOnceWhenShowingAll) {
  arriveOnTheSecond();
  signs->showAll();
  EXPECT_EQ(alpha(1), 0.0);
  EXPECT_EQ(behaviorOf(label(1)), 72U);
  desktop.advance(499ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsTheOtherLabelsInFullHalfASecondLater) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(500ms - 1ns);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  desktop.advance(1ns);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  EXPECT_EQ(behaviorOf(label(1)), 324U);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, KeepsAllShownFor15SecondsAndFadesThemOut) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(15s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(175ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.5, 0.5));
  desktop.advance(175ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_EQ(behaviorOf(label(0)), 324U);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsNothingWhereThePreferenceIsOff) {
  arriveOnTheSecond();
  preferences().setShowSignAfterSelection(false);
  signs->showAll();
  EXPECT_EQ(alpha(1), 0.78);
  EXPECT_EQ(behaviorOf(label(1)), 324U);
  desktop.advance(10s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.0, 0.78));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsAllWhereSwipeModeIsOff) {
  preferences().setShowSignInSwipeMode(false);
  startBetweenTicks();
  signs->showAll();
  // The next tick takes them away again 300 ms later.
  desktop.advance(400ms);
  desktop.advance(200ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, StartsTheFifteenSecondsAnewWhenShowingAllAgain) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(10s);
  signs->showAll();
  desktop.advance(15s - 1ns);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(350ms + 1ns);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, LetsTheShowingOfAnEarlierCallTakePlace) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(300ms);
  signs->showAll();
  desktop.advance(200ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsByTheDesktopThatWasActiveAtTheCall) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(100ms);
  desktop.switchTo(desktop.desktopAt(1));
  desktop.advance(100ms);
  signs->showAll();
  desktop.advance(300ms);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 1.0, 1.0));
  desktop.advance(200ms);
  EXPECT_THAT(alphas(), ElementsAre(1.0, 1.0, 1.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsNothingIfItIsOverByThen) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(10ms);
  signs->hideAll();
  desktop.advance(389ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ShowsTheOthersWhenTheDesktopInFrontHasNoLabel) {
  startBetweenTicks();
  desktop.overrideActiveSpace(999);
  desktop.reportActiveSpaceChange();
  showAllFully();
  EXPECT_THAT(alphas(), ElementsAre(1.0, 1.0, 1.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, StopsAFlashThatHasNotBegunWhenShowingAll) {
  arriveOnTheSecond();
  signs->showAll();
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
}

// --- Hiding all

TEST_F(SpaceSignWindowControllerVisibilityTest, HidesNothingThatIsNotShown) {
  startBetweenTicks();
  signs->hideAll();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  EXPECT_FALSE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerVisibilityTest, FadesOutWithin350Milliseconds) {
  startVisitedLabels();
  desktop.advance(10ms);
  showAllFully();
  signs->hideAll();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(70ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.8);
  desktop.advance(280ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, FadesTheLabelInFrontToo) {
  arriveOnTheSecond();
  desktop.overrideActiveSpace(999);
  signs->showAll();
  signs->handleSwipeBegan(Right);
  desktop.overrideActiveSpace({});
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(1.0, 0.0, 1.0));
  signs->hideAll();
  EXPECT_TRUE(label(1).isAnimating());
  desktop.advance(350ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, GivesEveryLabelItsOrdinaryBehaviourBack) {
  startBetweenTicks();
  showAllFully();
  signs->hideAll();
  for (const SimulatedWindow* each : labels()) {
    EXPECT_EQ(behaviorOf(*each), 324U);
  }
}

TEST_F(SpaceSignWindowControllerVisibilityTest, CancelsTheAutomaticHidingOfAShowThatIsOver) {
  startBetweenTicks();
  showAllFully();
  signs->hideAll();
  desktop.advance(9500ms);
  showAllFully();
  desktop.advance(10s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(4850ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

// --- The pointer

TEST_F(SpaceSignWindowControllerVisibilityTest, FadesAVisibleLabelInFrontThatThePointerEnters) {
  arriveOnTheSecond();
  desktop.advance(0s);
  user.movesPointerTo(overTheLabels);
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(150ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  desktop.advance(150ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, LeavesALabelAloneThatThePointerDoesNotEnter) {
  arriveOnTheSecond();
  user.movesPointerTo(besideTheLabels);
  EXPECT_FALSE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerVisibilityTest, CountsALabelsLeftAndBottomEdgesButNotItsRightAndTop) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  startBetweenTicks();
  const platform::Rect frame = label(1).frame();
  const double lastX = std::nextafter(frame.maxX(), -infinity);
  const double lastY = std::nextafter(frame.maxY(), -infinity);
  struct Row {
    platform::Point point;
    bool inside;
  };
  for (const Row& row : std::vector<Row>{{{frame.minX(), frame.minY()}, true},
                                         {{lastX, lastY}, true},
                                         {{frame.maxX(), frame.minY()}, false},
                                         {{frame.minX(), frame.maxY()}, false},
                                         {{std::nextafter(frame.minX(), -infinity), frame.minY()}, false},
                                         {{frame.minX(), std::nextafter(frame.minY(), -infinity)}, false}}) {
    desktop.switchTo(desktop.desktopAt(0));
    desktop.switchTo(desktop.desktopAt(1));
    user.movesPointerTo(row.point);
    EXPECT_EQ(label(1).isAnimating(), row.inside) << row.point.x << "," << row.point.y;
  }
}

TEST_F(SpaceSignWindowControllerVisibilityTest, TakesALabelOfFivePercentForHidden) {
  for (const auto& [opacity, visible] : std::vector<std::pair<double, bool>>{{0.05, false}, {0.0501, true}}) {
    preferences().setSignSwipeAlpha(opacity);
    startVisitedLabels();
    desktop.switchTo(desktop.desktopAt(1));
    user.movesPointerTo(overTheLabels);
    EXPECT_EQ(label(1).isAnimating(), visible) << opacity;
    signs.reset();
    desktop.switchTo(desktop.desktopAt(0));
  }
}

TEST_F(SpaceSignWindowControllerVisibilityTest, LeavesTheLabelsOfOtherDesktopsAloneWhileIdle) {
  startBetweenTicks();
  user.movesPointerTo(overTheLabels);
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, KeepsADismissedLabelAwayUntilTheDesktopChanges) {
  startLabels();
  signs->handleSwipeBegan(Right);
  desktop.switchTo(desktop.desktopAt(1));
  signs->handleSwipeBegan(Right);
  user.movesPointerTo(overTheLabels);
  desktop.advance(10s);
  EXPECT_EQ(alpha(1), 0.0);
  desktop.switchTo(desktop.desktopAt(0));
  EXPECT_EQ(alpha(1), 0.78);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, ForgetsWhichLabelsWereDismissedWhenTheDesktopChanges) {
  arriveOnTheSecond();
  user.movesPointerTo(overTheLabels);
  desktop.advance(500ms);
  ASSERT_EQ(alpha(1), 0.0);
  desktop.switchTo(desktop.desktopAt(0));
  preferences().setSignSwipeAlpha(0.3);
  desktop.advance(500ms);
  EXPECT_EQ(alpha(1), 0.3);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, HidesAllWhenThePointerEntersTheLabelArea) {
  startBetweenTicks();
  showAllFully();
  user.movesPointerTo(besideTheLabels);
  EXPECT_FALSE(label(1).isAnimating());
  user.movesPointerTo(overTheLabels);
  desktop.advance(175ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.5);
  desktop.advance(175ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, HidesAllForAPointerInTheAreaOfAnInvisibleLabel) {
  startBetweenTicks();
  signs->showAll();
  user.movesPointerTo(overTheLabels);
  EXPECT_EQ(behaviorOf(label(0)), 324U);
  desktop.advance(350ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerVisibilityTest, FadesFromTheStartOfTheHidingHoweverThePointerMovesOn) {
  startBetweenTicks();
  showAllFully();
  user.movesPointerTo(overTheLabels);
  desktop.advance(175ms);
  user.movesPointerTo(overTheLabels);
  desktop.advance(175ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerVisibilityTest, LivesWithoutAPointerMonitor) {
  desktop.faults.pointerMonitorsRefused = true;
  startBetweenTicks();
  showAllFully();
  user.movesPointerTo(overTheLabels);
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
}

}  // namespace
}  // namespace roomlattice::tests

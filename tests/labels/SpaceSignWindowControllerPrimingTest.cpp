#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

#include <vector>

namespace roomlattice::tests {
namespace {

using platform::simulated::SimulatedWindow;
using platform::simulated::WindowWrites;
using ::testing::ElementsAre;

class SpaceSignWindowControllerPrimingTest : public LabelFixture {
 protected:
  using LabelFixture::LabelFixture;

  std::vector<WindowWrites> writes() {
    std::vector<WindowWrites> all;
    for (const SimulatedWindow* label : labels()) {
      all.push_back(label->writes());
    }
    return all;
  }

  void startTour() { post(SpaceManager::tourWillStart); }
  void wakes() { desktop.announcements().post(platform::notification::didWake); }

  /// All labels are fading out then, from full opacity.
  void startHiding() {
    startVisitedLabels();
    desktop.advance(100ms);
    showAllFully();
    signs->hideAll();
  }
};

// --- The timer

TEST_F(SpaceSignWindowControllerPrimingTest, PutsTheOtherLabelsBackEveryHalfSecond) {
  startVisitedLabels();
  for (int tick = 0; tick < 3; ++tick) {
    desktop.advance(10ms);
    signs->showAll();
    signs->hideAll();
    desktop.advance(490ms - 1ns);
    EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
    desktop.advance(1ns);
    EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  }
}

TEST_F(SpaceSignWindowControllerPrimingTest, TicksForTheFirstTimeHalfASecondAfterTheStart) {
  startLabels();
  signs->handleSwipeBegan(Right);
  signs->showAll();
  signs->hideAll();
  desktop.advance(500ms - 1ns);
  EXPECT_EQ(alpha(1), 0.0);
  desktop.advance(1ns);
  EXPECT_EQ(alpha(1), 0.78);
}

TEST_F(SpaceSignWindowControllerPrimingTest, EndsAFadeThatIsUnderWay) {
  startVisitedLabels();
  desktop.advance(300ms);
  signs->showAll();
  signs->hideAll();
  desktop.advance(200ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  EXPECT_FALSE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerPrimingTest, WritesNothingInTheSteadyState) {
  startVisitedLabels();
  const std::vector<WindowWrites> before = writes();
  desktop.advance(60s);
  wakes();
  desktop.reportActiveSpaceChange();
  EXPECT_EQ(writes(), before);
}

TEST_F(SpaceSignWindowControllerPrimingTest, WritesNothingInTheSteadyStateWithoutSwipeMode) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  desktop.advance(1s);
  const std::vector<WindowWrites> before = writes();
  desktop.advance(60s);
  EXPECT_EQ(writes(), before);
}

TEST_F(SpaceSignWindowControllerPrimingTest, NeverTouchesTheLabelInFront) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(1));
  signs->handleSwipeBegan(Right);
  const int before = label(1).writes().alpha;
  desktop.advance(60s);
  wakes();
  EXPECT_EQ(alpha(1), 0.78);
  EXPECT_EQ(label(1).writes().alpha, before);
}

TEST_F(SpaceSignWindowControllerPrimingTest, LeavesTheFadeOfTheLabelInFrontAlone) {
  startVisitedLabels();
  desktop.advance(250ms);
  desktop.switchTo(desktop.desktopAt(1));
  desktop.advance(250ms);
  wakes();
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  EXPECT_TRUE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerPrimingTest, FollowsThePreferredOpacityWithinHalfASecond) {
  startVisitedLabels();
  preferences().setSignSwipeAlpha(0.3);
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.3, 0.3));
  desktop.storedDefaults()["SignSwipeAlpha"] = 0.4;
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.4, 0.4));
}

TEST_F(SpaceSignWindowControllerPrimingTest, PrimesALabelThatASwipeMade) {
  startLabels();
  signs->handleSwipeBegan(Right);
  preferences().setSignSwipeAlpha(0.3);
  desktop.advance(500ms);
  EXPECT_EQ(alpha(1), 0.3);
}

TEST_F(SpaceSignWindowControllerPrimingTest, TicksOnPunctuallyAfterTheMainThreadWasBusy) {
  startVisitedLabels();
  desktop.time().block(1300ms);
  desktop.advance(0s);
  preferences().setSignSwipeAlpha(0.3);
  desktop.advance(200ms - 1ns);
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(1ns);
  EXPECT_EQ(alpha(1), 0.3);
}

// --- Without swipe mode

TEST_F(SpaceSignWindowControllerPrimingTest, HidesEveryLabelWithinHalfASecondOnceSwipeModeIsOff) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(1));
  signs->handleSwipeBegan(Right);
  preferences().setShowSignInSwipeMode(false);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.78));
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerPrimingTest, ComesBackWithSwipeMode) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  desktop.advance(500ms);
  preferences().setShowSignInSwipeMode(true);
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerPrimingTest, HidesEvenShownLabelsWithoutSwipeMode) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  desktop.advance(600ms);
  showAllFully();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(400ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerPrimingTest, HidesLabelsDuringATourWithoutSwipeMode) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  startTour();
  desktop.advance(100ms);
  showAllFully();
  desktop.advance(400ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

// --- Beyond the timer

TEST_F(SpaceSignWindowControllerPrimingTest, PrimesAtOnceAfterWakingFromSleep) {
  startHiding();
  desktop.advance(10ms);
  desktop.sleepFor(2h);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerPrimingTest, PrimesAtOnceWhenTheWorkspaceReportsAChange) {
  startHiding();
  desktop.advance(10ms);
  desktop.reportActiveSpaceChange();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerPrimingTest, HidesAtOnceAfterWakingWithoutSwipeMode) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  desktop.sleepFor(2h);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerPrimingTest, LeavesTheLabelsAloneWhileAllAreShown) {
  startVisitedLabels();
  desktop.advance(100ms);
  showAllFully();
  wakes();
  desktop.reportActiveSpaceChange();
  desktop.advance(14s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
}

TEST_F(SpaceSignWindowControllerPrimingTest, LeavesDismissedLabelsAlone) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(1));
  user.movesPointerTo(overTheLabels);
  desktop.advance(2s);
  double afterWaking = -1.0;
  beforeLabelsHearOfAChange = [&] {
    wakes();
    afterWaking = alpha(1);
  };
  desktop.switchTo(desktop.desktopAt(0));
  EXPECT_EQ(afterWaking, 0.0);
  EXPECT_EQ(alpha(1), 0.78);
}

TEST_F(SpaceSignWindowControllerPrimingTest, DoesNotTickBeforeHalfASecondIsOver) {
  desktop.advance(130ms);
  startLabels();
  desktop.switchTo(desktop.desktopAt(1));
  preferences().setSignSwipeAlpha(0.3);
  desktop.advance(500ms - 1ns);
  EXPECT_EQ(alpha(0), 0.78);
  desktop.advance(1ns);
  EXPECT_EQ(alpha(0), 0.3);
}

}  // namespace
}  // namespace roomlattice::tests

#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

#include <set>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using platform::simulated::NewSpace;
using platform::simulated::SimulatedWindow;
using platform::simulated::spaceType::fullScreen;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using SpaceSignWindowControllerSwipeTest = LabelFixture;

class SpaceSignWindowControllerSwipeAmongFourTest : public SpaceSignWindowControllerSwipeTest {
 protected:
  SpaceSignWindowControllerSwipeAmongFourTest() : SpaceSignWindowControllerSwipeTest(4) {}
};

// --- A swipe begins

TEST_F(SpaceSignWindowControllerSwipeTest, ShowsTheOtherLabelsAtOnceWhenASwipeBegins) {
  startBetweenTicks();
  showAllFully();
  signs->hideAll();
  desktop.advance(200ms);
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  desktop.advance(290ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerSwipeTest, LeavesNoFadeOfTheOthersRunning) {
  startBetweenTicks();
  showAllFully();
  signs->hideAll();
  signs->handleSwipeBegan(Right);
  EXPECT_FALSE(label(1).isAnimating());
  EXPECT_FALSE(label(2).isAnimating());
}

TEST_F(SpaceSignWindowControllerSwipeTest, ShowsThemAtThePreferredOpacity) {
  startBetweenTicks();
  preferences().setSignSwipeAlpha(0.25);
  signs->handleSwipeBegan(Left);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.25, 0.25));
}

TEST_F(SpaceSignWindowControllerSwipeTest, SwipesChangeNothingWhereSwipeModeIsOff) {
  startLabels();
  preferences().setShowSignInSwipeMode(false);
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(1));
  EXPECT_EQ(alpha(0), 0.0);
}

TEST_F(SpaceSignWindowControllerSwipeTest, SwipesChangeNothingDuringATour) {
  startLabels();
  post(SpaceManager::tourWillStart);
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(1));
  post(SpaceManager::tourDidEnd);
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(2));
}

TEST_F(SpaceSignWindowControllerSwipeTest, SwipesBringFullyShownLabelsToTheSwipeOpacityAndGoOnShowing) {
  startBetweenTicks();
  showAllFully();
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  desktop.advance(14500ms);
  desktop.advance(175ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.39, 0.39));
}

TEST_F(SpaceSignWindowControllerSwipeTest, StopsAFlashThatHasNotBegunWhenASwipeBegins) {
  arriveOnTheSecond();
  signs->handleSwipeBegan(Right);
  desktop.advance(10s);
  EXPECT_EQ(alpha(1), 0.78);
}

TEST_F(SpaceSignWindowControllerSwipeTest, LetsAFlashThatHasBegunGoOnWhenASwipeBegins) {
  arriveOnTheSecond();
  desktop.advance(250ms);
  signs->handleSwipeBegan(Right);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  desktop.advance(250ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerSwipeTest, SwipesShowDismissedLabelsAsWell) {
  arriveOnTheSecond();
  user.movesPointerTo(overTheLabels);
  desktop.advance(500ms);
  ASSERT_EQ(alpha(1), 0.0);
  double afterSwipe = -1.0;
  beforeLabelsHearOfAChange = [&] {
    signs->handleSwipeBegan(Left);
    afterSwipe = alpha(1);
  };
  desktop.switchTo(desktop.desktopAt(0));
  EXPECT_EQ(afterSwipe, 0.78);
}

TEST_F(SpaceSignWindowControllerSwipeTest, SwipesPastTheFirstOrTheLastDesktopMakeNoLabel) {
  startLabels();
  signs->handleSwipeBegan(Left);
  EXPECT_THAT(labels(), SizeIs(1));
  desktop.switchTo(desktop.desktopAt(2));
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(2));
  EXPECT_EQ(alpha(0), 0.78);
}

TEST_F(SpaceSignWindowControllerSwipeTest, MakesTheLabelAheadOfASwipeToTheRight) {
  startLabels();
  preferences().setSignSwipeAlpha(0.5);
  signs->handleSwipeBegan(Right);
  ASSERT_THAT(labels(), SizeIs(2));
  const SimulatedWindow& made = label(1);
  EXPECT_EQ(made.alpha(), 0.5);
  EXPECT_EQ(made.spaces(), std::set<SpaceID>{desktop.desktopAt(1)});
  EXPECT_TRUE(made.isOrderedIn());
  EXPECT_EQ(static_cast<int>(made.level()), 3);
  EXPECT_EQ(behaviorOf(made), 324U);
  EXPECT_THAT(made.texts(), ElementsAre("Desktop 2"));
  EXPECT_EQ(made.frame(), signs->signFrame("Desktop 2"));
  EXPECT_EQ(made.contentView()->frame(), (platform::Rect{{}, made.frame().size}));
}

TEST_F(SpaceSignWindowControllerSwipeTest, MakesTheLabelAheadOfASwipeToTheLeft) {
  desktop.switchTo(desktop.desktopAt(2));
  startLabels();
  signs->handleSwipeBegan(Left);
  EXPECT_EQ(label(1).spaces(), std::set<SpaceID>{desktop.desktopAt(1)});
  EXPECT_EQ(labelOn(desktop.desktopAt(0)), nullptr);
}

TEST_F(SpaceSignWindowControllerSwipeTest, MakesNoSecondLabelAheadOfASwipe) {
  startLabels();
  signs->handleSwipeBegan(Right);
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(2));
}

TEST_F(SpaceSignWindowControllerSwipeTest, MakesNoLabelForAFullScreenSpaceAheadOfASwipe) {
  const SpaceID space = desktop.addDesktop(NewSpace{.type = fullScreen, .position = 1});
  startLabels();
  signs->handleSwipeBegan(Right);
  EXPECT_EQ(labelOn(space), nullptr);
  EXPECT_NE(labelOn(desktop.desktopAt(1)), nullptr);
}

TEST_F(SpaceSignWindowControllerSwipeTest, LooksBeyondTheEdgeOfTheDisplayForTheDesktopAhead) {
  desktop.addDisplay("Display 2", 2);
  desktop.switchTo(desktop.desktopAt(2));
  startLabels();
  signs->handleSwipeBegan(Right);
  EXPECT_NE(labelOn(desktop.desktopAt(3)), nullptr);
}

TEST_F(SpaceSignWindowControllerSwipeTest, MakesNoLabelAheadOfASwipeFromAFullScreenSpace) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  signs->handleSwipeBegan(Right);
  EXPECT_THAT(labels(), SizeIs(2));
  EXPECT_EQ(alpha(0), 0.78);
  EXPECT_EQ(labelOn(space)->alpha(), 0.0);
}

TEST_F(SpaceSignWindowControllerSwipeTest, TakesUpTheLabelThatASwipeMade) {
  startLabels();
  signs->handleSwipeBegan(Right);
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(labels(), SizeIs(2));
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(250ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
}

TEST_F(SpaceSignWindowControllerSwipeAmongFourTest, GoesByListOrderWhicheverDesktopsHaveLabels) {
  startLabels();
  desktop.switchTo(desktop.desktopAt(3));
  signs->handleSwipeBegan(Left);
  EXPECT_NE(labelOn(desktop.desktopAt(2)), nullptr);
  EXPECT_EQ(labelOn(desktop.desktopAt(1)), nullptr);
}

// --- Arriving on a desktop

TEST_F(SpaceSignWindowControllerSwipeTest, FadesTheLabelOfTheDesktopArrivedOn) {
  arriveOnTheSecond();
  EXPECT_EQ(alpha(1), 0.78);
  EXPECT_FALSE(label(1).isAnimating());
  desktop.advance(0s);
  EXPECT_TRUE(label(1).isAnimating());
  desktop.advance(250ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  desktop.advance(250ms);
  EXPECT_EQ(alpha(1), 0.0);
  desktop.advance(10s);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerSwipeTest, PreparesTheDesktopThatWasLeftAtOnce) {
  arriveOnTheSecond();
  EXPECT_EQ(alpha(0), 0.78);
  EXPECT_EQ(alpha(2), 0.78);
}

TEST_F(SpaceSignWindowControllerSwipeTest, FlashesOnlyTheLastOfSeveralArrivalsInOneTurn) {
  arriveOnTheSecond();
  desktop.switchTo(desktop.desktopAt(2));
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
  EXPECT_TRUE(label(2).isAnimating());
}

TEST_F(SpaceSignWindowControllerSwipeTest, TakesAFadingLabelBackWhenItsDesktopIsLeft) {
  arriveOnTheSecond();
  desktop.advance(250ms);
  desktop.switchTo(desktop.desktopAt(2));
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.0));
}

TEST_F(SpaceSignWindowControllerSwipeTest, DoesNotFlashALabelThatIsNew) {
  startLabels();
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(alpha(1), 0.0);
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerSwipeTest, DoesNotFlashOnADesktopThatIsNotInTheList) {
  arriveOnTheSecond();
  desktop.overrideActiveSpace(999);
  desktop.reportActiveSpaceChange();
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerSwipeTest, DoesNotFlashALabelThatWasLeftInTheSameTurn) {
  arriveOnTheSecond();
  desktop.switchTo(desktop.addDesktop());
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
  EXPECT_EQ(alpha(1), 0.78);
}

TEST_F(SpaceSignWindowControllerSwipeTest, FadesQuicklyAndDoesNotFlashAfterAChangeWhileAllAreShown) {
  startBetweenTicks();
  showAllFully();
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(alpha(1), 1.0);
  desktop.advance(175ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.5);
  EXPECT_EQ(alpha(0), 0.78);
  EXPECT_EQ(alpha(2), 0.78);
  desktop.advance(175ms);
  EXPECT_EQ(alpha(1), 0.0);
  EXPECT_EQ(behaviorOf(label(0)), 324U);
  desktop.advance(20s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.0, 0.78));
}

TEST_F(SpaceSignWindowControllerSwipeTest, HidesAllLabelsAfterAChangeWhereSwipeModeIsOff) {
  startBetweenTicks();
  preferences().setShowSignInSwipeMode(false);
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  desktop.advance(0s);
  EXPECT_FALSE(label(1).isAnimating());
}

TEST_F(SpaceSignWindowControllerSwipeTest, HidesTheOthersDuringATourAndDoesNotFlash) {
  startBetweenTicks();
  post(SpaceManager::tourWillStart);
  signs->showAll();
  desktop.advance(500ms);
  ASSERT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 0.0));
  desktop.advance(350ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerSwipeTest, ForgetsAFlashWhoseDesktopIsRemovedInTheSameTurn) {
  arriveOnTheSecond();
  desktop.removeDesktop(desktop.desktopAt(1));
  desktop.advance(2s);
  EXPECT_THAT(labels(), SizeIs(2));
}

TEST_F(SpaceSignWindowControllerSwipeTest, FadesNothingOnceTheControllerHasGone) {
  arriveOnTheSecond();
  signs.reset();
  desktop.advance(2s);
  EXPECT_THAT(labels(), IsEmpty());
}

}  // namespace
}  // namespace roomlattice::tests

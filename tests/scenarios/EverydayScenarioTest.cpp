#include "tests/scenarios/ScenarioFixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using platform::simulated::SimulatedWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class EverydayScenarioTest : public ScenarioFixture {
 protected:
  void names(std::size_t row, const std::string& name) {
    user.clicksStatusItem();
    user.clicksRowButton(row);
    user.types(name);
    user.pressesKey(platform::keyCode::returnKey);
    user.clicksStatusItem();
  }

  void choosesInMenu(std::size_t row) {
    user.clicksStatusItem();
    user.clicksRow(row);
  }
};

// --- Moving about

TEST_F(EverydayScenarioTest, SwipesThroughAllDesktopsAndBack) {
  startAndTour();
  std::size_t active = 0;
  for (const Direction direction : {Right, Right, Left, Left}) {
    active = direction == Right ? active + 1 : active - 1;
    swipesAndArrives(direction);
    EXPECT_EQ(title(), " Desktop " + std::to_string(active + 1) + " ");
    EXPECT_EQ(alphas(), std::vector(3, 0.78));
    desktop.advance(500ms);
    std::vector<double> rest(3, 0.78);
    rest[active] = 0.0;
    EXPECT_EQ(alphas(), rest);
  }
}

TEST_F(EverydayScenarioTest, SwipesOnBeforeTheLabelHasFaded) {
  startAndTour();
  swipesAndArrives(Right);
  desktop.advance(100ms);
  swipesAndArrives(Right);
  EXPECT_EQ(title(), " Desktop 3 ");
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.78));
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.0));
}

TEST_F(EverydayScenarioTest, SwitchesFromTheMenu) {
  startAndTour();
  choosesInMenu(2);
  desktop.advance(2s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.0));
}

TEST_F(EverydayScenarioTest, SwitchesFromTheMenuInAnInstant) {
  startAndTour();
  PreferencesStore::shared().setInstantMenuSwitch(true);
  choosesInMenu(2);
  desktop.advance(300ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
}

TEST_F(EverydayScenarioTest, SwipesAgainstASwitchFromTheMenu) {
  startAndTour();
  choosesInMenu(2);
  desktop.advance(100ms);
  user.swipes(Left);
  desktop.advance(3s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.0));
}

TEST_F(EverydayScenarioTest, PushesALabelAwayAndMeetsItAgain) {
  startAndTour();
  swipesAndArrives(Right);
  desktop.advance(50ms);
  user.movesPointerTo(overTheLabels);
  desktop.advance(300ms);
  EXPECT_EQ(alpha(1), 0.0);
  swipesAndArrives(Right);
  EXPECT_EQ(alpha(1), 0.78);
  swipesAndArrives(Left);
  EXPECT_EQ(alpha(1), 0.78);
}

// --- All at once

TEST_F(EverydayScenarioTest, LooksAtAllLabelsAndMovesThePointerAway) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  user.movesPointerTo(overTheLabels);
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(EverydayScenarioTest, SwipesWhileAllLabelsAreShown) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(2s);
  swipesAndArrives(Right);
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(175ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  desktop.advance(175ms);
  EXPECT_EQ(alpha(1), 0.0);
  desktop.advance(20s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.0, 0.78));
}

TEST_F(EverydayScenarioTest, GoesToTheCornerInTheMiddleOfASwipe) {
  startAndTour();
  user.swipes(Right);
  desktop.advance(100ms);
  user.movesPointerTo(corner);
  desktop.advance(190ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
  desktop.advance(2s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.0, 0.78));
}

TEST_F(EverydayScenarioTest, SleepsWhileAllLabelsAreShown) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(10s);
  desktop.sleepFor(8h);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  desktop.advance(6s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(EverydayScenarioTest, ChangesScreensWhileAllLabelsAreShown) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(1s);
  desktop.setScreens({{{0.0, 0.0}, {800.0, 600.0}}});
  EXPECT_EQ(labelAt(1)->frame(), (platform::Rect{{40.0, 140.0}, {720.0, 320.0}}));
  EXPECT_EQ(alpha(1), 1.0);
  // What was beside the labels is now over them.
  user.movesPointerTo({400.0, 300.0});
  desktop.advance(350ms);
  EXPECT_EQ(alpha(0), 0.0);
}

TEST_F(EverydayScenarioTest, TurnsSwipeModeOffAndOn) {
  startAndTour();
  swipesAndArrives(Right);
  PreferencesStore::shared().setShowSignInSwipeMode(false);
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  swipesAndArrives(Left);
  desktop.advance(3s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  PreferencesStore::shared().setShowSignInSwipeMode(true);
  desktop.advance(500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

// --- Desktops come and go

TEST_F(EverydayScenarioTest, NamesADesktopWhileAllLabelsAreShown) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(1s);
  names(2, "Mail");
  EXPECT_EQ(text(2), "Mail");
  EXPECT_EQ(labelAt(2)->frame().size.width, 560.0);
  EXPECT_EQ(alpha(2), 1.0);
}

TEST_F(EverydayScenarioTest, SwipesToADesktopThatWasJustAdded) {
  startAndTour();
  desktop.addDesktop({.position = 1});
  EXPECT_EQ(text(1), "no label");
  EXPECT_EQ(text(2), "Desktop 3");
  user.swipes(Right);
  desktop.advance(0s);
  EXPECT_EQ(text(1), "Desktop 2");
  EXPECT_EQ(alpha(1), 0.78);
  desktop.advance(290ms);
  EXPECT_EQ(title(), " Desktop 2 ");
  desktop.advance(500ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(EverydayScenarioTest, RemovesTheDesktopWhoseLabelIsFading) {
  startAndTour();
  swipesAndArrives(Right);
  desktop.advance(100ms);
  desktop.removeDesktop(desktop.desktopAt(1));
  EXPECT_THAT(labelsOf(desktop), SizeIs(2));
  EXPECT_EQ(title(), " Desktop 1 ");
  desktop.advance(2s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78));
}

TEST_F(EverydayScenarioTest, EntersAndLeavesFullScreenWhileAllLabelsAreShown) {
  startAndTour();
  user.movesPointerTo(corner);
  desktop.advance(1s);
  const SpaceID movie = desktop.enterFullScreen();
  EXPECT_EQ(title(), " Desktop ");
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.78, 0.78, 0.78));
  EXPECT_EQ(labelOn(desktop, movie)->alpha(), 0.0);
  desktop.removeDesktop(movie);
  desktop.advance(1s);
  EXPECT_THAT(labelsOf(desktop), SizeIs(3));
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(EverydayScenarioTest, UnplugsTheDisplayInFrontWhileAllLabelsAreShown) {
  desktop.addDisplay("Display 2", 2);
  startAndTour();
  desktop.switchTo(desktop.desktopAt(3));
  user.movesPointerTo(corner);
  desktop.advance(1s);
  desktop.removeDisplay(1);
  EXPECT_THAT(labelsOf(desktop), SizeIs(3));
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

// --- In the middle of the tour

TEST_F(EverydayScenarioTest, SwipesWhenTheTourIsAboutToStart) {
  startProgram();
  desktop.advance(1300ms);
  user.swipes(Right);
  desktop.advance(30s);
  EXPECT_EQ(toursStarted(), 1);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_THAT(labelsOf(desktop), SizeIs(3));
}

TEST_F(EverydayScenarioTest, SwipesDuringTheTour) {
  startProgram();
  desktop.advance(1700ms);
  user.swipes(Right);
  desktop.advance(100ms);
  for (const SimulatedWindow* label : labelsOf(desktop)) {
    EXPECT_EQ(label->alpha(), 0.0);
  }
  desktop.advance(30s);
  EXPECT_EQ(toursEnded(), 1);
}

TEST_F(EverydayScenarioTest, SleepsDuringTheTour) {
  startProgram();
  desktop.advance(2s);
  desktop.sleepFor(3h);
  EXPECT_EQ(toursEnded(), 0);
  desktop.advance(5s);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(EverydayScenarioTest, AddsADesktopDuringTheTour) {
  startProgram();
  desktop.advance(1600ms);
  desktop.addDesktop();
  desktop.advance(30s);
  EXPECT_EQ(logged("[Roomlattice] tour start: 4 steps"), 1);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_THAT(tourOverlaysOf(desktop), IsEmpty());
}

TEST_F(EverydayScenarioTest, RemovesADesktopDuringTheTour) {
  startProgram();
  desktop.advance(1600ms);
  desktop.removeDesktop(desktop.desktopAt(2));
  desktop.advance(30s);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_THAT(labelsOf(desktop), SizeIs(2));
}

TEST_F(EverydayScenarioTest, NamesDesktopsDuringTheTour) {
  startProgram();
  desktop.advance(1600ms);
  names(0, "Mail");
  desktop.advance(30s);
  EXPECT_EQ(text(0), "Mail");
  EXPECT_EQ(toursEnded(), 1);
}

TEST_F(EverydayScenarioTest, GoesToTheCornerDuringTheTour) {
  startProgram();
  desktop.advance(1600ms);
  user.movesPointerTo(corner);
  desktop.advance(30s);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(EverydayScenarioTest, SwitchesFromTheMenuDuringTheTour) {
  startProgram();
  desktop.advance(1600ms);
  choosesInMenu(2);
  desktop.advance(30s);
  EXPECT_EQ(toursEnded(), 1);
}

TEST_F(EverydayScenarioTest, QuitsDuringTheTourAndStartsAgain) {
  startProgram();
  names(0, "Mail");
  desktop.advance(2s);
  restartProgram();
  EXPECT_THAT(tourOverlaysOf(desktop), IsEmpty());
  desktop.advance(30s);
  EXPECT_EQ(toursStarted(), 2);
  EXPECT_EQ(toursEnded(), 1);
  EXPECT_EQ(text(0), "Mail");
  EXPECT_THAT(labelsOf(desktop), SizeIs(3));
}

}  // namespace
}  // namespace roomlattice::tests

#include "labels/TourOverlayView.h"
#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Rect;
using platform::simulated::SimulatedWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SpaceSignWindowControllerTourTest : public LabelFixture {
 protected:
  std::vector<SimulatedWindow*> overlays() { return tourOverlaysOf(desktop); }

  void startTour() { post(SpaceManager::tourWillStart); }
  void endTour() { post(SpaceManager::tourDidEnd); }
};

using SpaceSignWindowControllerTourDeathTest = SpaceSignWindowControllerTourTest;

// --- The labels

TEST_F(SpaceSignWindowControllerTourTest, HidesEveryLabelWhenATourStarts) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(1));
  startTour();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerTourTest, LeavesTheLabelsHiddenDuringATour) {
  startVisitedLabels();
  startTour();
  desktop.advance(700ms);
  desktop.announcements().post(platform::notification::didWake);
  desktop.switchTo(desktop.desktopAt(1));
  desktop.advance(700ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerTourTest, MakesTheLabelsOfTheDesktopsATourVisits) {
  startLabels();
  startTour();
  desktop.switchTo(desktop.desktopAt(1));
  desktop.switchTo(desktop.desktopAt(2));
  desktop.advance(1s);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(SpaceSignWindowControllerTourTest, BringsTheLabelsBackAtTheNextTickAfterATour) {
  startVisitedLabels();
  startTour();
  desktop.advance(1100ms);
  endTour();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
  desktop.advance(400ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerTourTest, HidesTheLabelsAgainWhenASecondTourStartIsReported) {
  startVisitedLabels();
  startTour();
  signs->showAll();
  desktop.advance(600ms);
  ASSERT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  startTour();
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.0, 0.0));
}

// --- The overlay

TEST_F(SpaceSignWindowControllerTourTest, ShowsTheOverlayInTheMiddleOfTheScreen) {
  startLabels();
  startTour();
  ASSERT_THAT(overlays(), SizeIs(1));
  const SimulatedWindow& overlay = *overlays().front();
  EXPECT_EQ(overlay.frame(), (Rect{{490.0, 402.0}, {460.0, 96.0}}));
  EXPECT_EQ(static_cast<int>(overlay.level()), 25);
  EXPECT_EQ(static_cast<unsigned>(overlay.collectionBehavior()), 81U);
  EXPECT_TRUE(overlay.isOrderedIn());
  ASSERT_NE(dynamic_cast<TourOverlayView*>(overlay.contentView()), nullptr);
  EXPECT_EQ(overlay.contentView()->frame(), (Rect{{}, {460.0, 96.0}}));
}

TEST_F(SpaceSignWindowControllerTourTest, ShowsTheOverlayOnEveryDesktop) {
  startLabels();
  startTour();
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_TRUE(overlays().front()->isOn(desktop.desktopAt(index)));
  }
}

TEST_F(SpaceSignWindowControllerTourTest, CentresTheOverlayOnTheMainScreenOrElseTheFirst) {
  desktop.setScreens({{{0.0, 0.0}, {1440.0, 900.0}}, {{-1600.0, 100.0}, {1600.0, 1000.0}}});
  desktop.setMainScreen(1);
  startLabels();
  startTour();
  EXPECT_EQ(overlays().front()->frame(), (Rect{{-1030.0, 552.0}, {460.0, 96.0}}));
  endTour();
  desktop.advance(1s);
  desktop.setMainScreen(std::nullopt);
  startTour();
  EXPECT_EQ(overlays().front()->frame(), (Rect{{490.0, 402.0}, {460.0, 96.0}}));
}

TEST_F(SpaceSignWindowControllerTourDeathTest, StopsTheProgramWithoutAScreenForTheOverlay) {
  desktop.overrideActiveSpace(999);
  desktop.setScreens({});
  startLabels();
  EXPECT_DEATH(startTour(), "there is no screen to show labels on");
}

TEST_F(SpaceSignWindowControllerTourTest, FadesTheOverlayIn) {
  startLabels();
  startTour();
  EXPECT_EQ(overlays().front()->alpha(), 0.0);
  desktop.advance(100ms);
  EXPECT_EQ(overlays().front()->alpha(), 0.5);
  desktop.advance(100ms);
  EXPECT_EQ(overlays().front()->alpha(), 1.0);
  desktop.advance(60s);
  EXPECT_EQ(overlays().front()->alpha(), 1.0);
}

TEST_F(SpaceSignWindowControllerTourTest, FadesTheOverlayOutAndLetsItGo) {
  startLabels();
  startTour();
  desktop.advance(1s);
  endTour();
  EXPECT_EQ(overlays().front()->alpha(), 1.0);
  desktop.advance(125ms);
  EXPECT_EQ(overlays().front()->alpha(), 0.5);
  EXPECT_TRUE(overlays().front()->isOrderedIn());
  desktop.advance(125ms);
  EXPECT_THAT(overlays(), IsEmpty());
}

TEST_F(SpaceSignWindowControllerTourTest, FadesAnOverlayOutFromWhereItsFadingInHasCome) {
  startLabels();
  startTour();
  desktop.advance(100ms);
  endTour();
  desktop.advance(125ms);
  EXPECT_EQ(overlays().front()->alpha(), 0.25);
  desktop.advance(125ms);
  EXPECT_THAT(overlays(), IsEmpty());
}

TEST_F(SpaceSignWindowControllerTourTest, KeepsTheOverlayWhenASecondTourStartIsReported) {
  startLabels();
  startTour();
  desktop.advance(1s);
  const SimulatedWindow* const overlay = overlays().front();
  startTour();
  EXPECT_THAT(overlays(), ElementsAre(overlay));
  EXPECT_EQ(overlay->alpha(), 1.0);
}

TEST_F(SpaceSignWindowControllerTourTest, ShowsANewOverlayWhileTheLastOneFadesOut) {
  startLabels();
  startTour();
  desktop.advance(1s);
  endTour();
  desktop.advance(100ms);
  startTour();
  EXPECT_THAT(overlays(), SizeIs(2));
  desktop.advance(200ms);
  ASSERT_THAT(overlays(), SizeIs(1));
  EXPECT_EQ(overlays().front()->alpha(), 1.0);
}

TEST_F(SpaceSignWindowControllerTourTest, TakesATourEndWithoutAStart) {
  startVisitedLabels();
  endTour();
  desktop.advance(1s);
  EXPECT_THAT(overlays(), IsEmpty());
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SpaceSignWindowControllerTourTest, TakesTheOverlayAlongWhenTheControllerGoes) {
  startLabels();
  startTour();
  desktop.advance(50ms);
  signs.reset();
  desktop.advance(1s);
  EXPECT_THAT(overlays(), IsEmpty());
}

// --- The showing of all labels

TEST_F(SpaceSignWindowControllerTourTest, LeavesAllShownLabelsToTheirOwnCourseWhenATourStarts) {
  startBetweenTicks();
  signs->showAll();
  desktop.advance(100ms);
  startTour();
  EXPECT_EQ(behaviorOf(label(0)), 72U);
  desktop.advance(400ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  endTour();
  desktop.advance(14500ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
  EXPECT_TRUE(label(1).isAnimating());
}

}  // namespace
}  // namespace roomlattice::tests

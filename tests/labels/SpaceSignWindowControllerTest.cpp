#include "labels/SpaceSignWindowController.h"

#include "labels/SignView.h"
#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <variant>

namespace roomlattice::tests {
namespace {

using platform::Rect;
using platform::SpaceID;
using platform::simulated::NewSpace;
using platform::simulated::SimulatedSystem;
using platform::simulated::SimulatedWindow;
using platform::simulated::spaceType::fullScreen;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SpaceSignWindowControllerTest : public LabelFixture {
 protected:
  static std::string text(const SimulatedWindow& label) { return label.texts().at(0); }

  void names(std::size_t index, const std::string& name) {
    SpaceManager& manager = SpaceManager::shared();
    manager.setName(name, *std::ranges::find(manager.spaces(), desktop.desktopAt(index), &SpaceInfo::spaceID));
  }

  static void expectPlacedAt(const SimulatedWindow& label, const Rect& frame) {
    EXPECT_EQ(label.frame(), frame);
    ASSERT_NE(label.contentView(), nullptr);
    EXPECT_EQ(label.contentView()->frame(), (Rect{{}, frame.size}));
  }
};

using SpaceSignWindowControllerDeathTest = SpaceSignWindowControllerTest;

// --- A label

TEST_F(SpaceSignWindowControllerTest, MakesTheLabelOfTheActiveDesktopAtOnce) {
  startLabels();
  ASSERT_THAT(labels(), SizeIs(1));
  EXPECT_EQ(text(label(0)), "Desktop 1");
}

TEST_F(SpaceSignWindowControllerTest, GivesALabelItsFixedProperties) {
  startLabels();
  EXPECT_EQ(static_cast<int>(label(0).level()), 3);
  EXPECT_EQ(static_cast<unsigned>(label(0).collectionBehavior()), 324U);
  EXPECT_EQ(label(0).alpha(), 0.0);
  EXPECT_TRUE(label(0).isOrderedIn());
  EXPECT_NE(dynamic_cast<SignView*>(label(0).contentView()), nullptr);
}

TEST_F(SpaceSignWindowControllerTest, AttachesALabelToItsDesktopAlone) {
  startVisitedLabels();
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_EQ(label(index).spaces(), std::set<SpaceID>{desktop.desktopAt(index)});
  }
}

TEST_F(SpaceSignWindowControllerTest, AttachesALabelToTheDesktopOfTheModelWhateverTheWindowServerHasByThen) {
  startLabels();
  SpaceManager& manager = SpaceManager::shared();
  manager.update(manager.spaces(), desktop.desktopAt(1));
  ASSERT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_TRUE(labels().back()->spaces().contains(desktop.desktopAt(1)));
}

TEST_F(SpaceSignWindowControllerTest, PutsALabelInFrontOfOthersOfItsLevel) {
  startVisitedLabels();
  EXPECT_EQ(labels().back(), labelOn(desktop.desktopAt(2)));
}

TEST_F(SpaceSignWindowControllerTest, CentresALabelOnTheScreen) {
  startLabels();
  expectPlacedAt(label(0), {{190.0, 290.0}, {1060.0, 320.0}});
}

// --- Frames

TEST_F(SpaceSignWindowControllerTest, SurroundsTheTextWithMargins) {
  startLabels();
  EXPECT_EQ(signs->signFrame("Mail"), (Rect{{440.0, 290.0}, {560.0, 320.0}}));
  EXPECT_EQ(signs->signFrame(""), (Rect{{640.0, 290.0}, {160.0, 320.0}}));
}

TEST_F(SpaceSignWindowControllerTest, CapsTheWidthAtNineTenthsOfTheScreen) {
  startLabels();
  EXPECT_EQ(signs->signFrame("Eleven char"), (Rect{{90.0, 290.0}, {1260.0, 320.0}}));
  EXPECT_EQ(signs->signFrame("Twelve chars"), (Rect{{72.0, 290.0}, {1296.0, 320.0}}));
  EXPECT_EQ(signs->signFrame(std::string(500, 'x')), (Rect{{72.0, 290.0}, {1296.0, 320.0}}));
}

TEST_F(SpaceSignWindowControllerTest, CapsTheHeightAtSixTenthsOfTheScreen) {
  startLabels();
  preferences().setSignTextSize(336.0);
  EXPECT_EQ(signs->signFrame("A"), (Rect{{535.0, 180.0}, {370.0, 540.0}}));
  preferences().setSignTextSize(400.0);
  EXPECT_EQ(signs->signFrame("A"), (Rect{{515.0, 180.0}, {410.0, 540.0}}));
}

TEST_F(SpaceSignWindowControllerTest, CentresFramesOnTheMainScreenWhereverItIs) {
  desktop.setScreens({{{0.0, 0.0}, {1440.0, 900.0}}, {{-1600.0, 100.0}, {1600.0, 1000.0}}});
  desktop.setMainScreen(1);
  startLabels();
  EXPECT_EQ(signs->signFrame("Mail"), (Rect{{-1080.0, 440.0}, {560.0, 320.0}}));
}

TEST_F(SpaceSignWindowControllerTest, CentresFramesOnTheFirstScreenWhileNoneIsTheMainOne) {
  desktop.setScreens({{{100.0, 0.0}, {1440.0, 900.0}}, {{-1600.0, 100.0}, {1600.0, 1000.0}}});
  desktop.setMainScreen(std::nullopt);
  startLabels();
  EXPECT_EQ(signs->signFrame("Mail"), (Rect{{540.0, 290.0}, {560.0, 320.0}}));
}

TEST_F(SpaceSignWindowControllerDeathTest, StopsTheProgramWithoutAnyScreen) {
  desktop.setScreens({});
  EXPECT_DEATH(startLabels(), "there is no screen to show labels on");
}

TEST_F(SpaceSignWindowControllerDeathTest, StopsTheProgramWhenTheLastScreenGoes) {
  startLabels();
  EXPECT_DEATH(desktop.setScreens({}), "there is no screen to show labels on");
}

TEST_F(SpaceSignWindowControllerTest, NeedsNoScreenWhileThereIsNothingToPlace) {
  desktop.overrideActiveSpace(999);
  desktop.setScreens({});
  startLabels();
  EXPECT_THAT(labels(), IsEmpty());
}

// --- Which desktops have one

TEST_F(SpaceSignWindowControllerTest, MakesNoLabelWithoutAnActiveDesktop) {
  desktop.overrideActiveSpace(999);
  startLabels();
  EXPECT_THAT(labels(), IsEmpty());
}

TEST_F(SpaceSignWindowControllerTest, MakesADesktopsLabelWhenItBecomesActive) {
  startLabels();
  EXPECT_EQ(labelOn(desktop.desktopAt(2)), nullptr);
  desktop.switchTo(desktop.desktopAt(2));
  EXPECT_EQ(text(label(2)), "Desktop 3");
  EXPECT_EQ(labelOn(desktop.desktopAt(1)), nullptr);
}

TEST_F(SpaceSignWindowControllerTest, KeepsOneLabelPerDesktop) {
  startVisitedLabels();
  for (const std::size_t index : {1U, 0U, 2U, 0U}) {
    desktop.switchTo(desktop.desktopAt(index));
    desktop.reportActiveSpaceChange();
  }
  EXPECT_THAT(labels(), SizeIs(3));
}

TEST_F(SpaceSignWindowControllerTest, MakesNoLabelForADesktopThatIsAdded) {
  startVisitedLabels();
  desktop.addDesktop();
  EXPECT_THAT(labels(), SizeIs(3));
  desktop.switchTo(desktop.desktopAt(3));
  EXPECT_EQ(text(label(3)), "Desktop 4");
}

TEST_F(SpaceSignWindowControllerTest, DropsTheLabelOfADesktopThatIsRemoved) {
  startVisitedLabels();
  desktop.removeDesktop(desktop.desktopAt(1));
  EXPECT_THAT(labels(), SizeIs(2));
  EXPECT_EQ(text(label(1)), "Desktop 2");
}

TEST_F(SpaceSignWindowControllerTest, DropsTheLabelOfTheActiveDesktopWhenThatIsRemoved) {
  startVisitedLabels();
  desktop.removeDesktop(desktop.desktopAt(0));
  desktop.advance(0s);
  EXPECT_THAT(labels(), SizeIs(2));
}

TEST_F(SpaceSignWindowControllerTest, DropsALabelNoSoonerThanTheListIsReported) {
  startVisitedLabels();
  desktop.faults.listChangesNotReported = true;
  desktop.removeDesktop(desktop.desktopAt(1));
  EXPECT_THAT(labels(), SizeIs(3));
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(labels(), SizeIs(2));
}

TEST_F(SpaceSignWindowControllerTest, DropsAllLabelsWhenTheListIsEmpty) {
  startVisitedLabels();
  desktop.overrideManagedDisplaySpaces(platform::Value("nonsense"));
  desktop.reportActiveSpaceChange();
  EXPECT_THAT(labels(), IsEmpty());
}

TEST_F(SpaceSignWindowControllerTest, MakesALabelForAFullScreenSpaceInFront) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  ASSERT_NE(labelOn(space), nullptr);
  EXPECT_EQ(text(*labelOn(space)), "Desktop");
  EXPECT_EQ(labelOn(space)->spaces(), std::set<SpaceID>{space});
}

TEST_F(SpaceSignWindowControllerTest, KeepsTheLabelOfAFullScreenSpaceWhileTheListStays) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  desktop.switchTo(desktop.desktopAt(1));
  desktop.advance(1s);
  EXPECT_NE(labelOn(space), nullptr);
}

TEST_F(SpaceSignWindowControllerTest, DropsTheLabelOfAFullScreenSpaceAtTheNextListChange) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  desktop.addDesktop();
  EXPECT_EQ(desktop.activeSpace(), space);
  EXPECT_EQ(labelOn(space), nullptr);
  desktop.advance(5s);
  EXPECT_EQ(labelOn(space), nullptr);
}

TEST_F(SpaceSignWindowControllerTest, DropsTheLabelOfAFullScreenSpaceWhenADesktopIsNamed) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  names(1, "Mail");
  EXPECT_EQ(labelOn(space), nullptr);
}

// --- Names, preferences and screens

TEST_F(SpaceSignWindowControllerTest, FollowsTheNameOfTheActiveDesktop) {
  startVisitedLabels();
  names(0, "Mail");
  EXPECT_EQ(text(label(0)), "Mail");
  expectPlacedAt(label(0), {{440.0, 290.0}, {560.0, 320.0}});
}

TEST_F(SpaceSignWindowControllerTest, FollowsTheNamesOfOtherDesktops) {
  startVisitedLabels();
  names(2, "Mail");
  EXPECT_EQ(text(label(2)), "Mail");
  expectPlacedAt(label(2), {{440.0, 290.0}, {560.0, 320.0}});
  EXPECT_EQ(text(label(0)), "Desktop 1");
}

TEST_F(SpaceSignWindowControllerTest, FollowsTheNumbersOfUnnamedDesktops) {
  startVisitedLabels();
  desktop.moveDesktop(desktop.desktopAt(2), 0);
  EXPECT_EQ(text(label(0)), "Desktop 1");
  EXPECT_EQ(text(label(1)), "Desktop 2");
  EXPECT_EQ(text(label(2)), "Desktop 3");
}

TEST_F(SpaceSignWindowControllerTest, NumbersTheDesktopsOfEachDisplay) {
  desktop.addDisplay("Display 2", 2);
  startVisitedLabels();
  EXPECT_EQ(text(label(3)), "Desktop 1");
  EXPECT_EQ(text(label(4)), "Desktop 2");
}

TEST_F(SpaceSignWindowControllerTest, ResizesAllLabelsWithTheTextSize) {
  startVisitedLabels();
  preferences().setSignTextSize(80.0);
  for (std::size_t index = 0; index < 3; ++index) {
    expectPlacedAt(label(index), {{415.0, 340.0}, {610.0, 220.0}});
    const auto content = label(index).contentView()->content();
    EXPECT_EQ(content.elements.at(0).frame, (Rect{{80.0, 60.0}, {450.0, 100.0}}));
  }
}

TEST_F(SpaceSignWindowControllerTest, RecentresAllLabelsWhenTheScreensChange) {
  startVisitedLabels();
  desktop.setScreens({{{200.0, 100.0}, {1000.0, 500.0}}});
  for (std::size_t index = 0; index < 3; ++index) {
    expectPlacedAt(label(index), {{250.0, 200.0}, {900.0, 300.0}});
  }
}

TEST_F(SpaceSignWindowControllerTest, ResizesTheLabelOfAFullScreenSpaceToo) {
  startLabels();
  const SpaceID space = desktop.enterFullScreen();
  preferences().setSignTextSize(80.0);
  expectPlacedAt(*labelOn(space), {{465.0, 340.0}, {510.0, 220.0}});
}

TEST_F(SpaceSignWindowControllerTest, RefreshesOnlyTheTextOfALabelWhoseDesktopBecomesActive) {
  startVisitedLabels();
  desktop.setScreens({{{0.0, 0.0}, {1440.0, 900.0}}, {{1440.0, 0.0}, {1600.0, 1000.0}}});
  desktop.setMainScreen(1);
  desktop.switchTo(desktop.desktopAt(1));
  expectPlacedAt(label(1), {{190.0, 290.0}, {1060.0, 320.0}});
}

// --- Order, activity, end

// The label fading out on the desktop in front is the arriving desktop's only if the model and the labels heard of the
// change before priming did: as an inactive one it would have been put back to the swipe alpha.
TEST_F(SpaceSignWindowControllerTest, HearsOfAChangeInTheOrderModelThenLabelsThenPriming) {
  startVisitedLabels();
  signs->showAll();
  desktop.advance(600ms);
  signs->hideAll();
  desktop.advance(70ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.8);
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_DOUBLE_EQ(alpha(1), 0.8);
  EXPECT_DOUBLE_EQ(alpha(0), 0.78);
}

TEST_F(SpaceSignWindowControllerTest, AsksTheSystemToKeepItsTimerPunctual) {
  startLabels();
  const SimulatedSystem::Activity activity{platform::ActivityKind::UserInitiatedAllowingIdleSystemSleep,
                                           "Keep desktop-label priming responsive"};
  EXPECT_THAT(platform().system().activities(), ElementsAre(activity));
  desktop.advance(60s);
  EXPECT_THAT(platform().system().activities(), ElementsAre(activity));
}

TEST_F(SpaceSignWindowControllerTest, TakesEverythingAlongWhenItGoes) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(1));
  signs->showAll();
  signs.reset();
  EXPECT_THAT(desktop.windows().overlays(), IsEmpty());
  EXPECT_THAT(platform().system().activities(), IsEmpty());
  desktop.switchTo(desktop.desktopAt(2));
  user.movesPointerTo(overTheLabels);
  desktop.advance(60s);
  EXPECT_THAT(desktop.windows().overlays(), IsEmpty());
}

}  // namespace
}  // namespace roomlattice::tests

#include "platform/simulated/Dock.h"

#include "tests/support/SimulatedFixture.h"

#include <cstddef>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;

using platform::EventField;
using platform::SpaceID;
using platform::simulated::SwipeMotion;
using platform::simulated::SwipeRule;

class DockTest : public SimulatedFixture {
 protected:
  void completeSwipe(SwipeMotion motion) {
    user.movesFingers(DockSwipe::Began, {});
    user.movesFingers(DockSwipe::Ended, motion);
    desktop.advance(1s);
  }

  void swipeAndWait(Direction direction) {
    user.swipes(direction);
    desktop.advance(1s);
  }

  /// Where so many swipes lead, from and including the desktop now in front.
  std::vector<SpaceID> visits(Direction direction, int swipes) {
    std::vector<SpaceID> visited{desktop.activeSpace()};
    for (int swipe = 0; swipe < swipes; ++swipe) {
      swipeAndWait(direction);
      visited.push_back(desktop.activeSpace());
    }
    return visited;
  }
};

TEST_F(DockTest, MovesOneDesktopInTheDirectionOfTheSwipe) {
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
  swipeAndWait(Left);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DockTest, StaysAtEitherEndOfTheList) {
  swipeAndWait(Left);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  desktop.switchTo(desktop.desktopAt(2));
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
}

TEST_F(DockTest, ArrivesASettlingTimeAfterTheFingersLift) {
  desktop.dock().setSettlingTime(400ms);
  user.movesFingers(DockSwipe::Began, {});
  desktop.advance(5s);
  user.movesFingers(DockSwipe::Ended, {.progress = 1.0});
  desktop.advance(399ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  desktop.advance(1ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(DockTest, MovesOnlyForASwipeThatCameFarOrWasFast) {
  struct Row {
    SwipeMotion motion;
    std::size_t target;  // the index of the desktop arrived on, from that at 1
  };
  const Row rows[] = {
      {{.progress = 0.5, .velocity = 0.0}, 2},    {{.progress = 0.49, .velocity = 0.0}, 1},
      {{.progress = -0.5, .velocity = 0.0}, 0},   {{.progress = -0.49, .velocity = 0.99}, 1},
      {{.progress = 0.1, .velocity = 1.0}, 2},    {{.progress = 0.1, .velocity = -1.0}, 0},
      {{.progress = 0.9, .velocity = -400.0}, 0}, {{.progress = 1e-45, .velocity = 400.0}, 2},
  };
  for (const Row& row : rows) {
    desktop.switchTo(desktop.desktopAt(1));
    completeSwipe(row.motion);
    EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(row.target))
        << row.motion.progress << " at " << row.motion.velocity;
  }
}

TEST_F(DockTest, ForgetsACancelledSwipe) {
  user.movesFingers(DockSwipe::Began, {});
  user.movesFingers(DockSwipe::Changed, {.progress = 0.9, .velocity = 2.0});
  user.movesFingers(DockSwipe::Cancelled, {.progress = 0.9, .velocity = 2.0});
  user.movesFingers(DockSwipe::Ended, {.progress = 1.0, .velocity = 2.0});
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DockTest, NeedsTheStartOfASwipeButNotItsFirstEvent) {
  user.movesFingers(DockSwipe::Ended, {.progress = 1.0, .velocity = 2.0});
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  user.movesFingers(DockSwipe::Changed, {.progress = 0.5, .velocity = 2.0});
  user.movesFingers(DockSwipe::Ended, {.progress = 1.0, .velocity = 2.0});
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(DockTest, RecognisesOnlyHorizontalSwipesBetweenDesktops) {
  FieldEvent swipe;
  swipe.setInteger(EventField::Kind, 30);
  swipe.setInteger(EventField::GestureKind, 23);
  swipe.setInteger(EventField::SwipeAxis, 1);
  swipe.setReal(EventField::Progress, 1.0);
  for (const EventField field : {EventField::Kind, EventField::GestureKind, EventField::SwipeAxis}) {
    FieldEvent other = swipe;
    other.setInteger(field, 2);
    for (const DockSwipe::Phase phase : {DockSwipe::Began, DockSwipe::Ended}) {
      other.setInteger(EventField::Phase, phase);
      desktop.events().pass(other);
    }
  }
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DockTest, CountsEachOfSeveralSwipesThatAreUnderWay) {
  for (int swipe = 0; swipe < 2; ++swipe) {
    user.movesFingers(DockSwipe::Began, {});
    user.movesFingers(DockSwipe::Ended, {.progress = 1.0});
  }
  desktop.advance(250ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
}

TEST_F(DockTest, VisitsTheRegularDesktopsOfAllDisplays) {
  desktop.addDesktop({.type = platform::simulated::spaceType::fullScreen, .position = 1});
  desktop.addDisplay("Display 2", 2);
  std::vector<SpaceID> desktops;
  for (const auto& space : desktop.spaces().regular()) {
    desktops.push_back(space.id);
  }
  ASSERT_EQ(desktops.size(), 5U);
  EXPECT_EQ(visits(Right, 4), desktops);
  EXPECT_EQ(desktop.spaces().keyboardDisplay(), 1U);
}

TEST_F(DockTest, LeavesAFullScreenSpaceForTheNearestDesktop) {
  const SpaceID fullScreen = desktop.enterFullScreen();
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
  desktop.switchTo(fullScreen);
  swipeAndWait(Left);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DockTest, VisitsAllSpacesOfOneDisplayUnderTheOtherRule) {
  desktop.dock().setSwipeRule(SwipeRule::SpacesOfDisplay);
  const SpaceID fullScreen = desktop.addDesktop({.type = platform::simulated::spaceType::fullScreen, .position = 1});
  desktop.addDisplay("Display 2", 2);
  EXPECT_EQ(visits(Right, 4), (std::vector<SpaceID>{desktop.desktopAt(0), fullScreen, desktop.desktopAt(1),
                                                    desktop.desktopAt(2), desktop.desktopAt(2)}));
}

TEST_F(DockTest, MovesNowhereWithoutAnyDisplay) {
  desktop.removeDisplay(0);
  for (const SwipeRule rule : {SwipeRule::RegularDesktops, SwipeRule::SpacesOfDisplay}) {
    desktop.dock().setSwipeRule(rule);
    swipeAndWait(Right);
    EXPECT_EQ(desktop.activeSpace(), 0U);
  }
}

TEST_F(DockTest, DropsAsManySwipesAsTheFaultSays) {
  desktop.faults.swipesDropped = 1;
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(DockTest, DropsEverySwipeWhileTheFaultLasts) {
  desktop.faults.allSwipesDropped = true;
  EXPECT_EQ(visits(Right, 3), std::vector<SpaceID>(4, desktop.desktopAt(0)));
  desktop.faults.allSwipesDropped = false;
  swipeAndWait(Right);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(DockTest, ArrivesLateWhereSwipesAreDelayed) {
  desktop.faults.swipesDelayedBy = 2s;
  user.swipes(Right);
  desktop.advance(2289ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  desktop.advance(1ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

}  // namespace
}  // namespace roomlattice::tests

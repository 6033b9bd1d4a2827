#include "input/SwipeWatcher.h"

#include "spaces/SpaceManager.h"
#include "tests/support/SimulatedFixture.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;

using platform::EventField;
using platform::simulated::SwipeMotion;
using platform::simulated::TapDisabling;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr SwipeMotion toTheRight{.progress = 0.1, .velocity = 0.5};
constexpr SwipeMotion toTheLeft{.progress = -0.1, .velocity = -0.5};

class SwipeWatcherTest : public SimulatedFixture {
 protected:
  void startWatcher() {
    watcher.emplace(platform());
    watcher->onSwipeBegan = [this](platform::Direction direction) { reported.push_back(direction); };
    watcher->start();
  }

  void moves(DockSwipe::Phase phase, const SwipeMotion& motion) {
    user.movesFingers(phase, motion);
    desktop.advance(0s);
  }

  static FieldEvent swipeBeginning() {
    FieldEvent event;
    event.setInteger(EventField::Kind, 30);
    event.setInteger(EventField::GestureKind, 23);
    event.setInteger(EventField::Phase, 1);
    event.setReal(EventField::Velocity, 0.5);
    return event;
  }

  void passes(const FieldEvent& event) {
    desktop.events().pass(event);
    desktop.advance(0s);
  }

  std::vector<platform::Direction> reported;
  std::optional<SwipeWatcher> watcher;
};

TEST_F(SwipeWatcherTest, ReportsAWholeSwipeOnce) {
  startWatcher();
  user.swipes(Right);
  desktop.advance(1s);
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, ReportsEachOfSeveralSwipes) {
  startWatcher();
  for (const Direction direction : {Right, Left, Left}) {
    user.swipes(direction);
    desktop.advance(1s);
  }
  EXPECT_THAT(reported, ElementsAre(Right, Left, Left));
}

TEST_F(SwipeWatcherTest, ReportsOnALaterTurn) {
  startWatcher();
  user.movesFingers(DockSwipe::Began, toTheRight);
  EXPECT_THAT(reported, IsEmpty());
  desktop.advance(0s);
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, TakesTheDirectionFromTheVelocityOrElseFromTheProgress) {
  constexpr double tiny = std::numeric_limits<double>::denorm_min();
  struct Row {
    SwipeMotion motion;
    platform::Direction direction;
  };
  const std::vector<Row> rows = {
      {{.progress = 0.3, .velocity = 1.0}, Right},   {{.progress = -0.3, .velocity = 1.0}, Right},
      {{.progress = 0.3, .velocity = -1.0}, Left},   {{.progress = -0.3, .velocity = -1.0}, Left},
      {{.progress = 0.3, .velocity = 0.0}, Right},   {{.progress = -0.3, .velocity = 0.0}, Left},
      {{.progress = 0.0, .velocity = 0.0}, Right},   {{.progress = -0.0, .velocity = -0.0}, Right},
      {{.progress = -0.3, .velocity = -0.0}, Left},  {{.progress = 0.3, .velocity = -tiny}, Left},
      {{.progress = -0.3, .velocity = tiny}, Right}, {{.progress = -tiny, .velocity = 0.0}, Left},
  };
  startWatcher();
  for (const Row& row : rows) {
    reported.clear();
    moves(DockSwipe::Began, row.motion);
    EXPECT_THAT(reported, ElementsAre(row.direction)) << row.motion.progress << " " << row.motion.velocity;
    moves(DockSwipe::Ended, row.motion);
  }
}

TEST_F(SwipeWatcherTest, TakesTheFirstOfTheTwoVelocities) {
  startWatcher();
  FieldEvent event = swipeBeginning();
  event.setReal(static_cast<EventField>(129), -0.5);
  event.setReal(static_cast<EventField>(130), 0.5);
  event.setReal(static_cast<EventField>(124), 0.5);
  passes(event);
  EXPECT_THAT(reported, ElementsAre(Left));
}

TEST_F(SwipeWatcherTest, MakesALostBeginningGoodByTheFirstChange) {
  startWatcher();
  moves(DockSwipe::Changed, toTheLeft);
  moves(DockSwipe::Changed, toTheRight);
  EXPECT_THAT(reported, ElementsAre(Left));
}

TEST_F(SwipeWatcherTest, ReportsOnlyTheFirstOfTwoSwipesWithoutAnEndBetween) {
  startWatcher();
  moves(DockSwipe::Began, toTheRight);
  moves(DockSwipe::Changed, toTheRight);
  moves(DockSwipe::Began, toTheLeft);
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, IsReadyAgainAfterTheEndOrTheCancellation) {
  startWatcher();
  for (const DockSwipe::Phase end : {DockSwipe::Ended, DockSwipe::Cancelled}) {
    reported.clear();
    moves(DockSwipe::Began, toTheRight);
    moves(end, toTheRight);
    moves(DockSwipe::Began, toTheLeft);
    EXPECT_THAT(reported, ElementsAre(Right, Left));
    moves(end, toTheLeft);
  }
}

TEST_F(SwipeWatcherTest, TakesNoOtherPhaseForABeginningOrAnEnd) {
  startWatcher();
  for (const std::int64_t phase : {0, 3, 5, 6, 16, 32, 128, -1}) {
    reported.clear();
    moves(static_cast<DockSwipe::Phase>(phase), toTheRight);
    EXPECT_THAT(reported, IsEmpty()) << phase;
    moves(DockSwipe::Began, toTheRight);
    moves(static_cast<DockSwipe::Phase>(phase), toTheRight);
    moves(DockSwipe::Changed, toTheRight);
    EXPECT_THAT(reported, ElementsAre(Right)) << phase;
    moves(DockSwipe::Ended, toTheRight);
  }
}

TEST_F(SwipeWatcherTest, EndsOfNothingAreHarmless) {
  startWatcher();
  moves(DockSwipe::Ended, toTheRight);
  moves(DockSwipe::Cancelled, toTheRight);
  EXPECT_THAT(reported, IsEmpty());
}

TEST_F(SwipeWatcherTest, CountsOnlyDockSwipesThatNoProcessPosted) {
  startWatcher();
  for (const auto& [field, value] : {std::pair{EventField::SourceProcessID, 1},
                                     {EventField::SourceProcessID, -1},
                                     {EventField::Kind, 29},
                                     {EventField::Kind, 0},
                                     {EventField::GestureKind, 22},
                                     {EventField::GestureKind, 0}}) {
    FieldEvent event = swipeBeginning();
    event.setInteger(field, value);
    passes(event);
    EXPECT_THAT(reported, IsEmpty()) << static_cast<int>(field) << "=" << value;
  }
  passes(swipeBeginning());
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, LetsNoProcessEndTheUsersSwipe) {
  startWatcher();
  passes(swipeBeginning());
  FieldEvent end = swipeBeginning();
  end.setInteger(EventField::Phase, 4);
  end.setInteger(EventField::SourceProcessID, 1);
  passes(end);
  passes(swipeBeginning());
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, DoesNotHearTheProgramsOwnSwipes) {
  startWatcher();
  SpaceManager& manager = SpaceManager::shared();
  manager.update({{.spaceID = desktop.desktopAt(0)}, {.spaceID = desktop.desktopAt(1)}}, desktop.desktopAt(0));
  manager.switchToSpace(manager.spaces().at(1), SwitchStyle::Animated);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
  EXPECT_THAT(reported, IsEmpty());
}

TEST_F(SwipeWatcherTest, LeavesTheSwipeToTheDock) {
  startWatcher();
  user.swipes(Right);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SwipeWatcherTest, LogsOneLineAndHearsNothingWithoutPermission) {
  desktop.faults.accessibilityDenied = true;
  startWatcher();
  desktop.faults.accessibilityDenied = false;
  user.swipes(Right);
  desktop.advance(60s);
  EXPECT_THAT(reported, IsEmpty());
  EXPECT_THAT(desktop.log().texts(),
              ElementsAre("[Roomlattice] SwipeWatcher: failed to create event tap (need Accessibility)"));
}

TEST_F(SwipeWatcherTest, CanBeStartedOnceThePermissionIsGiven) {
  desktop.faults.accessibilityDenied = true;
  startWatcher();
  desktop.faults.accessibilityDenied = false;
  watcher->start();
  moves(DockSwipe::Began, toTheRight);
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, StartsOnce) {
  startWatcher();
  desktop.faults.accessibilityDenied = true;
  watcher->start();
  desktop.faults.accessibilityDenied = false;
  moves(DockSwipe::Began, toTheRight);
  EXPECT_THAT(reported, ElementsAre(Right));
  EXPECT_THAT(desktop.log().texts(), IsEmpty());
}

TEST_F(SwipeWatcherTest, HearsOnAfterTheSystemDisabledTheTap) {
  startWatcher();
  for (const TapDisabling cause : {TapDisabling::ByTimeout, TapDisabling::ByUserInput}) {
    reported.clear();
    desktop.events().disableTaps(cause);
    moves(DockSwipe::Began, toTheRight);
    EXPECT_THAT(reported, ElementsAre(Right));
    moves(DockSwipe::Ended, toTheRight);
  }
}

TEST_F(SwipeWatcherTest, RemembersTheSwipeWhileTheTapIsDisabled) {
  startWatcher();
  moves(DockSwipe::Began, toTheRight);
  desktop.events().disableTaps(TapDisabling::ByTimeout);
  moves(DockSwipe::Changed, toTheRight);
  EXPECT_THAT(reported, ElementsAre(Right));
}

TEST_F(SwipeWatcherTest, ReportsNothingOnceItHasGone) {
  startWatcher();
  user.movesFingers(DockSwipe::Began, toTheRight);
  watcher.reset();
  desktop.advance(1s);
  user.swipes(Left);
  desktop.advance(1s);
  EXPECT_THAT(reported, IsEmpty());
}

TEST_F(SwipeWatcherTest, NeedsNobodyToReportTo) {
  watcher.emplace(platform());
  watcher->start();
  user.swipes(Right);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

}  // namespace
}  // namespace roomlattice::tests

#include "input/HotCornerWatcher.h"

#include "tests/support/SimulatedFixture.h"

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Point;
using platform::Rect;

constexpr double infinity = std::numeric_limits<double>::infinity();

constexpr Rect ordinaryScreen{{0.0, 0.0}, {1440.0, 900.0}};
constexpr Rect screenToTheLeft{{-1920.0, 300.0}, {1920.0, 1080.0}};

class HotCornerWatcherTest : public SimulatedFixture {
 protected:
  void startWatcher() {
    watcher.emplace(platform());
    watcher->onApproach = [this] { ++approaches; };
    watcher->start();
  }

  void pointsAt(Point point) {
    user.movesPointerTo(point);
    desktop.advance(0s);
  }

  static constexpr Point corner{2.0, 898.0};
  static constexpr Point elsewhere{700.0, 400.0};

  int approaches = 0;
  std::optional<HotCornerWatcher> watcher;
};

TEST_F(HotCornerWatcherTest, FiresOncePerEntry) {
  startWatcher();
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
  pointsAt({0.0, 900.0});
  pointsAt({5.0, 895.0});
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
}

TEST_F(HotCornerWatcherTest, FiresAgainAfterThePointerHasLeft) {
  startWatcher();
  for (int entry = 1; entry <= 3; ++entry) {
    pointsAt(corner);
    EXPECT_EQ(approaches, entry);
    pointsAt({5.5, 895.0});
  }
}

TEST_F(HotCornerWatcherTest, FiresOnALaterTurn) {
  startWatcher();
  user.movesPointerTo(corner);
  EXPECT_EQ(approaches, 0);
  desktop.advance(0s);
  EXPECT_EQ(approaches, 1);
}

TEST_F(HotCornerWatcherTest, FiresForAnEntryThatIsOverOnTheLaterTurn) {
  startWatcher();
  user.movesPointerTo(corner);
  user.movesPointerTo(elsewhere);
  desktop.advance(0s);
  EXPECT_EQ(approaches, 1);
}

TEST_F(HotCornerWatcherTest, StaysQuietElsewhere) {
  startWatcher();
  for (const Point point : {elsewhere, Point{1438.0, 898.0}, Point{2.0, 2.0}, Point{1438.0, 2.0}}) {
    pointsAt(point);
  }
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, IncludesAllFourBoundsOfTheSquareOnAnyScreen) {
  startWatcher();
  for (const Rect& screen : {ordinaryScreen, screenToTheLeft, Rect{{100.5, -0.25}, {800.0, 600.75}}}) {
    desktop.setScreens({screen});
    const double left = screen.minX();
    const double right = left + 5.0;
    const double top = screen.maxY();
    const double bottom = top - 5.0;
    for (const Point inside :
         {Point{left, top}, {right, top}, {left, bottom}, {right, bottom}, {left + 2.5, top - 2.5}}) {
      pointsAt({screen.midX(), screen.midY()});
      approaches = 0;
      pointsAt(inside);
      EXPECT_EQ(approaches, 1) << inside.x << "," << inside.y;
    }
    for (const Point outside : {Point{std::nextafter(left, -infinity), top},
                                {std::nextafter(right, infinity), top},
                                {left, std::nextafter(top, infinity)},
                                {right, std::nextafter(bottom, -infinity)}}) {
      pointsAt({screen.midX(), screen.midY()});
      approaches = 0;
      pointsAt(outside);
      EXPECT_EQ(approaches, 0) << outside.x << "," << outside.y;
    }
  }
}

TEST_F(HotCornerWatcherTest, KnowsOnlyTheCornerOfTheMainScreen) {
  desktop.setScreens({ordinaryScreen, screenToTheLeft});
  startWatcher();
  pointsAt({-1918.0, 1378.0});
  EXPECT_EQ(approaches, 0);
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
  pointsAt(elsewhere);
  desktop.setMainScreen(1);
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
  pointsAt({-1918.0, 1378.0});
  EXPECT_EQ(approaches, 2);
}

TEST_F(HotCornerWatcherTest, StaysDisarmedThroughMovesWithoutAMainScreen) {
  startWatcher();
  pointsAt(corner);
  desktop.setMainScreen(std::nullopt);
  pointsAt(elsewhere);
  desktop.setMainScreen(0);
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
}

TEST_F(HotCornerWatcherTest, StaysArmedThroughMovesWithoutAMainScreen) {
  startWatcher();
  desktop.setMainScreen(std::nullopt);
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
  desktop.setMainScreen(0);
  pointsAt(corner);
  EXPECT_EQ(approaches, 1);
}

TEST_F(HotCornerWatcherTest, LivesWithoutAnyScreen) {
  desktop.setScreens({});
  startWatcher();
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, LivesWithoutAMonitor) {
  desktop.faults.pointerMonitorsRefused = true;
  startWatcher();
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, NeedsNobodyToReportTo) {
  watcher.emplace(platform());
  watcher->start();
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, DoesNotFireBeforeItIsStarted) {
  watcher.emplace(platform());
  watcher->onApproach = [this] { ++approaches; };
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, FiresNoMoreOnceItHasGone) {
  startWatcher();
  user.movesPointerTo(corner);
  watcher.reset();
  desktop.advance(0s);
  pointsAt(elsewhere);
  pointsAt(corner);
  EXPECT_EQ(approaches, 0);
}

TEST_F(HotCornerWatcherTest, FiresAgainAfterThePointerHasBeenOnAnotherScreen) {
  desktop.setScreens({ordinaryScreen, screenToTheLeft});
  startWatcher();
  int entries = 0;
  for (const Point onTheLeft : {Point{-960.0, 840.0}, {-1918.0, 1378.0}, {-1.0, 898.0}}) {
    pointsAt(corner);
    EXPECT_EQ(approaches, ++entries);
    pointsAt(onTheLeft);
  }
  pointsAt(corner);
  EXPECT_EQ(approaches, ++entries);
}

}  // namespace
}  // namespace roomlattice::tests

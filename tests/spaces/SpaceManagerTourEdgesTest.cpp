#include "tests/spaces/SpaceManagerTourFixture.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>

namespace roomlattice::tests {
namespace {

using ::testing::ElementsAre;

/// The first and the last moments of a tour, and tours that meet.
using SpaceManagerTourEdgesTest = SpaceManagerTourTest;

class SpaceManagerTourEdgesOfSixTest : public SpaceManagerTourTest {
 protected:
  SpaceManagerTourEdgesOfSixTest() : SpaceManagerTourTest(6) {}
};

TEST_F(SpaceManagerTourEdgesTest, TakesNoReportBeforeTheFirstStepForItsArrival) {
  onEvent = [this](const std::string& event) {
    if (event == SpaceManager::tourWillStart) {
      desktop.reportActiveSpaceChange();
    }
  };
  startTourByHand();
  advanceTo(1200ms - 1ns);
  EXPECT_EQ(directions(), "R");
}

TEST_F(SpaceManagerTourEdgesOfSixTest, IsCutOffDuringItsLastStepToo) {
  startTourByHand();
  reportsArrivalAt(19300ms);
  advanceTo(20s - 1ns);
  // Eight steps were repeated and skipped; the ninth arrived, and the tenth is under way.
  ASSERT_EQ(directions().size(), 18U);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart));
  advanceTo(20s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
  EXPECT_EQ(logged().at(logged().size() - 2), hardTimeoutLine);
  EXPECT_EQ(logged().back(), endLine);
}

TEST_F(SpaceManagerTourEdgesTest, BeginsAnewWhenItIsStartedWhileItRuns) {
  startTourByHand();
  advanceTo(500ms);
  manager.performAutoTour([this] { happens("second completion"); });
  for (const auto at : {600ms, 700ms, 800ms, 900ms}) {
    reportsArrivalAt(at);
  }
  advanceTo(1s);
  EXPECT_EQ(directions(), "RRRLL");
  EXPECT_THAT(logged(), ElementsAre(startLine(4), startLine(4), endLine));
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourWillStart, SpaceManager::tourDidEnd,
                                   "second completion"));
}

TEST_F(SpaceManagerTourEdgesTest, LeavesNoTimeLimitBehindForTheNextOne) {
  startTour();
  advanceTo(19900ms);
  manager.performAutoTour({});
  desktop.advance(15s);
  EXPECT_EQ(directions(), "RRLLRRLL");
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine, startLine(4), endLine));
}

TEST_F(SpaceManagerTourEdgesTest, HasItsHomeThoughItIsStartedFromTheEndOfAnother) {
  bool startedAgain = false;
  onEvent = [&](const std::string& event) {
    if (event == SpaceManager::tourDidEnd && !std::exchange(startedAgain, true)) {
      manager.performAutoTour();
    }
  };
  startTour();
  while (!startedAgain && elapsed() < 20s) {
    desktop.advance(10ms);
  }
  desktop.advance(450ms);
  ASSERT_NE(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_EQ(manager.homeSpace()->spaceID, desktop.desktopAt(0));
}

// The completion is looked up after the end has been announced: by then it is the other tour's.
TEST_F(SpaceManagerTourEdgesTest, LetsItsEndStartAnotherWhoseCompletionTakesItsOwnsPlace) {
  bool startedAgain = false;
  onEvent = [&](const std::string& event) {
    if (event == SpaceManager::tourDidEnd && !std::exchange(startedAgain, true)) {
      manager.performAutoTour([this] { happens("second completion"); });
    }
  };
  startTour();
  desktop.advance(40s);
  EXPECT_EQ(directions(), "RRLLRRLL");
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, SpaceManager::tourWillStart,
                                   "second completion", SpaceManager::tourDidEnd));
}

}  // namespace
}  // namespace roomlattice::tests

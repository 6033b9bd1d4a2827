#include "tests/spaces/SpaceManagerTourFixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Duration;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using SpaceManagerTourStepsTest = SpaceManagerTourTest;

// --- Arrivals

TEST_F(SpaceManagerTourStepsTest, SwipesOn80MillisecondsAfterAnArrival) {
  startTourByHand();
  reportsArrivalAt(500ms);
  advanceTo(580ms - 1ns);
  EXPECT_EQ(directions(), "R");
  advanceTo(580ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{580ms, Right}));
}

TEST_F(SpaceManagerTourStepsTest, AdvancesOnceHoweverOftenAnArrivalIsReported) {
  startTourByHand();
  for (const Duration at : {500ms, 500ms, 520ms, 579ms}) {
    reportsArrivalAt(at);
  }
  advanceTo(1700ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{580ms, Right}));
}

TEST_F(SpaceManagerTourStepsTest, EndsAsWellWhenEveryArrivalIsReportedSeveralTimes) {
  desktop.faults.extraActiveSpaceNotices = 3;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SpaceManagerTourStepsTest, CountsAnyChangeAsTheArrivalOfTheStepUnderWay) {
  startTourByHand();
  advanceTo(100ms);
  desktop.switchTo(desktop.desktopAt(2));
  advanceTo(180ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{180ms, Right}));
}

TEST_F(SpaceManagerTourStepsTest, TimesOutNoStepThatArrivedAt1100Milliseconds) {
  startTourByHand();
  reportsArrivalAt(1100ms);
  advanceTo(2379ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1180ms, Right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4)));
}

TEST_F(SpaceManagerTourStepsTest, RetriesAStepWhoseArrivalHasNotSettledAtItsTimeout) {
  startTourByHand();
  reportsArrivalAt(1150ms);
  advanceTo(2400ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}, Swipe{1230ms, Right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTourStepsTest, DropsAnArrivalWhoseStepIsOverWhenItHasSettled) {
  startTourByHand();
  reportsArrivalAt(2350ms);
  advanceTo(3599ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}, Swipe{2400ms, Right}));
}

TEST_F(SpaceManagerTourStepsTest, CountsALateArrivalForTheStepUnderWay) {
  startTourByHand();
  reportsArrivalAt(2410ms);
  advanceTo(2490ms);
  EXPECT_THAT(swipesSinceStart(),
              ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}, Swipe{2400ms, Right}, Swipe{2490ms, Left}));
}

TEST_F(SpaceManagerTourStepsTest, DropsArrivalsThatSettleAfterTheEnd) {
  onEvent = [this](const std::string&) { desktop.reportActiveSpaceChange(); };
  startTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine));
}

// --- Timeouts

TEST_F(SpaceManagerTourStepsTest, RepeatsTheSwipeOnceAfter1200Milliseconds) {
  startTourByHand();
  advanceTo(1200ms - 1ns);
  EXPECT_EQ(directions(), "R");
  advanceTo(1200ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTourStepsTest, RepeatsTheWholeSwipe) {
  startTourByHand();
  advanceTo(1200ms + 162ms);
  std::vector<PostedEvent> first(recorder.posted().begin(), recorder.posted().begin() + 10);
  for (PostedEvent& event : first) {
    event.at += 1200ms;
  }
  EXPECT_EQ(std::vector(recorder.posted().begin() + 10, recorder.posted().end()), first);
}

TEST_F(SpaceManagerTourStepsTest, SkipsAStepAfterASecondTimeout) {
  startTourByHand();
  advanceTo(2400ms - 1ns);
  EXPECT_EQ(directions(), "RR");
  advanceTo(2400ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}, Swipe{2400ms, Right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1)));
}

TEST_F(SpaceManagerTourStepsTest, RetriesEachStepAnew) {
  startTourByHand();
  advanceTo(2400ms + 1200ms);
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1), retryLine(2)));
}

TEST_F(SpaceManagerTourStepsTest, SkipsNoStepThatArrivedAfterItsRetry) {
  startTourByHand();
  reportsArrivalAt(2000ms);
  advanceTo(3279ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}, Swipe{1200ms, Right}, Swipe{2080ms, Right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTourStepsTest, ReturnsToTheStartAfterADroppedSwipe) {
  desktop.faults.swipesDropped = 1;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), endLine));
}

TEST_F(SpaceManagerTourStepsTest, GoesOnWithTheNextDirectionAfterASkip) {
  desktop.faults.swipesDropped = 2;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRLLL");
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1), retryLine(4), skipLine(4), endLine));
}

TEST_F(SpaceManagerTourStepsTest, TakesALateArrivalAfterARetryWithoutLosingItsWay) {
  desktop.faults.swipesDelayedBy = 1s;
  startTour();
  desktop.advance(30s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
}

// A timeout knows its step by the number alone, and so one of an earlier tour takes the same step of the next for its
// own; the step's own timeout then finds it repeated already.
TEST_F(SpaceManagerTourStepsTest, AdvancesAtItsTimeoutAStepThatHasBeenRepeatedAlready) {
  startTourByHand();
  for (const Duration at : {10ms, 110ms, 210ms, 310ms}) {
    reportsArrivalAt(at);
  }
  advanceTo(500ms);
  ASSERT_THAT(logged(), ElementsAre(startLine(4), endLine));
  manager.performAutoTour();
  advanceTo(1700ms);
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine, startLine(4), retryLine(1),
                                    "[Roomlattice] tour step 1 timed out, advancing"));
  EXPECT_EQ(swipesSinceStart().back(), (Swipe{1700ms, Right}));
}

// --- The hard timeout

class SpaceManagerTourStepsOfManyTest : public SpaceManagerTourTest {
 protected:
  SpaceManagerTourStepsOfManyTest() : SpaceManagerTourTest(6) {}

  static std::vector<std::string> linesOfSkippedSteps(int steps, int skipped) {
    std::vector<std::string> lines = {startLine(steps)};
    for (int step = 1; step <= skipped; ++step) {
      lines.push_back(retryLine(step));
      lines.push_back(skipLine(step));
    }
    return lines;
  }
};

TEST_F(SpaceManagerTourStepsOfManyTest, IsCutOffAfter20SecondsWithoutPermission) {
  desktop.faults.accessibilityDenied = true;
  startTour();
  advanceTo(20s - 1ns);
  std::vector<std::string> lines = linesOfSkippedSteps(10, 8);
  EXPECT_THAT(logged(), ElementsAreArray(lines));
  advanceTo(20s);
  lines.push_back(hardTimeoutLine);
  lines.push_back(endLine);
  EXPECT_THAT(logged(), ElementsAreArray(lines));
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
}

TEST_F(SpaceManagerTourStepsOfManyTest, DoesNothingMoreAfterTheCut) {
  startTourByHand();
  advanceTo(20s);
  const std::size_t lines = logged().size();
  const std::size_t begun = swipes().size();
  reportsArrivalAt(20s + 10ms);
  advanceTo(60s);
  EXPECT_EQ(logged().size(), lines);
  EXPECT_EQ(swipes().size(), begun);
  EXPECT_EQ(history.size(), 3U);
}

TEST_F(SpaceManagerTourStepsOfManyTest, EndsByItselfAfter19200MillisecondsWithFiveDesktopsAndNoPermission) {
  desktop.removeDesktop(desktop.desktopAt(5));
  desktop.faults.accessibilityDenied = true;
  startTour();
  advanceTo(19200ms - 1ns);
  EXPECT_EQ(history.size(), 1U);
  advanceTo(19200ms);
  std::vector<std::string> lines = linesOfSkippedSteps(8, 8);
  lines.push_back(endLine);
  EXPECT_THAT(logged(), ElementsAreArray(lines));
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
}

TEST_F(SpaceManagerTourStepsTest, PassesItsHardTimeoutInSilenceAfterItsEnd) {
  startTour();
  desktop.advance(60s);
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine));
  EXPECT_EQ(history.size(), 3U);
}

}  // namespace
}  // namespace roomlattice::tests

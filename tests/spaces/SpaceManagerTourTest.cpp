#include "preferences/PreferencesStore.h"
#include "tests/spaces/SpaceManagerFixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Duration;
using platform::simulated::NewSpace;
using platform::simulated::spaceType::fullScreen;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const std::string endLine = "[Roomlattice] tour end";
const std::string hardTimeoutLine = "[Roomlattice] tour hard timeout after 20s, forcing end";

std::string startLine(int steps) {
  return "[Roomlattice] tour start: " + std::to_string(steps) + " steps";
}

std::string retryLine(int step) {
  return "[Roomlattice] tour step " + std::to_string(step) + " retrying swipe";
}

std::string skipLine(int step) {
  return "[Roomlattice] tour step " + std::to_string(step) + " timed out after retry, skipping";
}

class SpaceManagerTour : public SpaceManagerFixture {
 protected:
  explicit SpaceManagerTour(int desktops = 3) : SpaceManagerFixture(desktops) {
    const auto note = [this](std::string_view name) {
      return platform().notifications().defaultCenter().observe(name, [this, name] { happens(std::string(name)); });
    };
    observations_.push_back(note(SpaceManager::tourWillStart));
    observations_.push_back(note(SpaceManager::tourDidEnd));
  }

  /// From here on, times count from the start of the tour.
  void startTour() {
    follow();
    start_ = desktop.now();
    manager.performAutoTour([this] { happens("completion"); });
  }

  /// No swipe moves anything: the test says when desktops are reported to have changed.
  void startTourByHand() {
    desktop.faults.allSwipesDropped = true;
    startTour();
  }

  Duration elapsed() const { return desktop.now() - start_; }

  void advanceTo(Duration sinceStart) { desktop.advance(sinceStart - elapsed()); }

  void reportsArrivalAt(Duration sinceStart) {
    advanceTo(sinceStart);
    desktop.reportActiveSpaceChange();
  }

  std::vector<Swipe> swipesSinceStart() const {
    std::vector<Swipe> all = swipes();
    for (Swipe& swipe : all) {
      swipe.at -= start_;
    }
    return all;
  }

  std::vector<std::string> logged() { return desktop.log().texts(); }

  void happens(const std::string& event) {
    history.push_back(event);
    if (onEvent) {
      onEvent(event);
    }
  }

  /// The tour's notifications and its completion, in order.
  std::vector<std::string> history;
  std::function<void(const std::string& event)> onEvent;

 private:
  Duration start_{0};
  std::vector<platform::Registration> observations_;
};

constexpr auto right = ISSDirection::right;
constexpr auto left = ISSDirection::left;

struct TourRow {
  int desktops;
  std::size_t start;
  std::string directions;
};

class SpaceManagerTourQueue : public SpaceManagerTour, public ::testing::WithParamInterface<TourRow> {
 protected:
  SpaceManagerTourQueue() : SpaceManagerTour(GetParam().desktops) {}
};

INSTANTIATE_TEST_SUITE_P(Starts, SpaceManagerTourQueue,
                         ::testing::Values(TourRow{2, 0, "RL"}, TourRow{2, 1, "LR"}, TourRow{3, 0, "RRLL"},
                                           TourRow{3, 1, "RLLR"}, TourRow{3, 2, "LLRR"}, TourRow{5, 1, "RRRLLLLR"},
                                           TourRow{5, 4, "LLLLRRRR"}, TourRow{12, 0, "RRRRRRRRRRRLLLLLLLLLLL"}),
                         [](const auto& row) {
                           return "Of" + std::to_string(row.param.desktops) + "From" + std::to_string(row.param.start);
                         });

TEST_P(SpaceManagerTourQueue, GoesToTheLastDesktopBackToTheFirstAndForwardToTheStart) {
  desktop.switchTo(desktop.desktopAt(GetParam().start));
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), GetParam().directions);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(GetParam().start));
  EXPECT_THAT(logged(), ElementsAre(startLine(static_cast<int>(GetParam().directions.size())), endLine));
}

TEST_F(SpaceManagerTour, VisitsTheDesktopsOfAllDisplaysAndNoFullScreenSpace) {
  desktop.addDesktop(NewSpace{.type = fullScreen, .position = 1});
  desktop.addDisplay("Display 2", 2);
  desktop.addDesktop(NewSpace{.type = fullScreen, .display = 1, .position = 0});
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRRLLLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SpaceManagerTour, UsesTheAnimatedSwipeWhateverThePreference) {
  PreferencesStore::shared().setInstantMenuSwitch(true);
  startTourByHand();
  advanceTo(200ms);
  EXPECT_EQ(recorder.posted().size(), 10U);
}

TEST_F(SpaceManagerTour, SwipesBeforeItReturns) {
  startTourByHand();
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}));
}

TEST_F(SpaceManagerTour, AnnouncesTheStartAfterTheLogLineAndBeforeTheFirstSwipe) {
  std::vector<std::string> linesAtStart;
  std::size_t eventsAtStart = 99;
  onEvent = [&](const std::string&) {
    linesAtStart = logged();
    eventsAtStart = recorder.posted().size();
  };
  startTourByHand();
  EXPECT_THAT(linesAtStart, ElementsAre(startLine(4)));
  EXPECT_EQ(eventsAtStart, 0U);
}

TEST_F(SpaceManagerTour, EndsWithTheLogLineThenTheNotificationThenTheCompletion) {
  std::vector<std::string> lastLines;
  onEvent = [&](const std::string&) { lastLines.push_back(logged().back()); };
  startTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre("SpaceManagerTourWillStart", "SpaceManagerTourDidEnd", "completion"));
  EXPECT_THAT(lastLines, ElementsAre(startLine(4), endLine, endLine));
}

TEST_F(SpaceManagerTour, NeedsNoCompletion) {
  follow();
  manager.performAutoTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd));
}

TEST_F(SpaceManagerTour, LetsGoOfTheCompletionAfterTheCall) {
  const auto held = std::make_shared<int>(0);
  follow();
  manager.performAutoTour([held] {});
  EXPECT_EQ(held.use_count(), 2);
  desktop.advance(10s);
  EXPECT_EQ(held.use_count(), 1);
}

// --- Nothing to tour

class SpaceManagerTourOfNothing : public SpaceManagerTour {
 protected:
  using SpaceManagerTour::SpaceManagerTour;

  void expectOnlyACompletion(std::vector<SpaceInfo> spaces, platform::SpaceID active) {
    manager.update(std::move(spaces), active);
    manager.performAutoTour([this] { happens("completion"); });
    EXPECT_THAT(history, ElementsAre("completion"));
    manager.performAutoTour();
    desktop.advance(30s);
    EXPECT_THAT(history, ElementsAre("completion"));
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(recorder.posted(), IsEmpty());
  }
};

TEST_F(SpaceManagerTourOfNothing, CompletesAtOnceWithoutDesktops) {
  expectOnlyACompletion({}, 0);
}

TEST_F(SpaceManagerTourOfNothing, CompletesAtOnceWithOneDesktop) {
  expectOnlyACompletion({{.spaceID = 1}}, 1);
}

TEST_F(SpaceManagerTourOfNothing, CompletesAtOnceWithOneDesktopBesideFullScreenSpaces) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2, .type = 4}, {.spaceID = 3, .type = 4}}, 1);
}

TEST_F(SpaceManagerTourOfNothing, CompletesAtOnceWhenTheActiveDesktopIsUnknown) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2}}, 3);
}

TEST_F(SpaceManagerTourOfNothing, CompletesAtOnceFromAFullScreenSpace) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2, .type = 4}, {.spaceID = 3}}, 2);
}

// --- Arrivals

TEST_F(SpaceManagerTour, SwipesOn80MillisecondsAfterAnArrival) {
  startTourByHand();
  reportsArrivalAt(500ms);
  advanceTo(580ms - 1ns);
  EXPECT_EQ(directions(), "R");
  advanceTo(580ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{580ms, right}));
}

TEST_F(SpaceManagerTour, AdvancesOnceHoweverOftenAnArrivalIsReported) {
  startTourByHand();
  for (const Duration at : {500ms, 500ms, 520ms, 579ms}) {
    reportsArrivalAt(at);
  }
  advanceTo(1700ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{580ms, right}));
}

TEST_F(SpaceManagerTour, EndsAsWellWhenEveryArrivalIsReportedSeveralTimes) {
  desktop.faults.extraActiveSpaceNotices = 3;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SpaceManagerTour, CountsAnyChangeAsTheArrivalOfTheStepUnderWay) {
  startTourByHand();
  advanceTo(100ms);
  desktop.switchTo(desktop.desktopAt(2));
  advanceTo(180ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{180ms, right}));
}

TEST_F(SpaceManagerTour, TimesOutNoStepThatArrivedAt1100Milliseconds) {
  startTourByHand();
  reportsArrivalAt(1100ms);
  advanceTo(2379ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1180ms, right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4)));
}

TEST_F(SpaceManagerTour, RetriesAStepWhoseArrivalHasNotSettledAtItsTimeout) {
  startTourByHand();
  reportsArrivalAt(1150ms);
  advanceTo(2400ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}, Swipe{1230ms, right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTour, DropsAnArrivalWhoseStepIsOverWhenItHasSettled) {
  startTourByHand();
  reportsArrivalAt(2350ms);
  advanceTo(3599ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}, Swipe{2400ms, right}));
}

TEST_F(SpaceManagerTour, CountsALateArrivalForTheStepUnderWay) {
  startTourByHand();
  reportsArrivalAt(2410ms);
  advanceTo(2490ms);
  EXPECT_THAT(swipesSinceStart(),
              ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}, Swipe{2400ms, right}, Swipe{2490ms, left}));
}

TEST_F(SpaceManagerTour, DropsArrivalsThatSettleAfterTheEnd) {
  onEvent = [this](const std::string&) { desktop.reportActiveSpaceChange(); };
  startTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine));
}

// --- Timeouts

TEST_F(SpaceManagerTour, RepeatsTheSwipeOnceAfter1200Milliseconds) {
  startTourByHand();
  advanceTo(1200ms - 1ns);
  EXPECT_EQ(directions(), "R");
  advanceTo(1200ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTour, RepeatsTheWholeSwipe) {
  startTourByHand();
  advanceTo(1200ms + 162ms);
  std::vector<PostedEvent> first(recorder.posted().begin(), recorder.posted().begin() + 10);
  for (PostedEvent& event : first) {
    event.at += 1200ms;
  }
  EXPECT_EQ(std::vector(recorder.posted().begin() + 10, recorder.posted().end()), first);
}

TEST_F(SpaceManagerTour, SkipsAStepAfterASecondTimeout) {
  startTourByHand();
  advanceTo(2400ms - 1ns);
  EXPECT_EQ(directions(), "RR");
  advanceTo(2400ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}, Swipe{2400ms, right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1)));
}

TEST_F(SpaceManagerTour, RetriesEachStepAnew) {
  startTourByHand();
  advanceTo(2400ms + 1200ms);
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1), retryLine(2)));
}

TEST_F(SpaceManagerTour, SkipsNoStepThatArrivedAfterItsRetry) {
  startTourByHand();
  reportsArrivalAt(2000ms);
  advanceTo(3279ms);
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, right}, Swipe{1200ms, right}, Swipe{2080ms, right}));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1)));
}

TEST_F(SpaceManagerTour, ReturnsToTheStartAfterADroppedSwipe) {
  desktop.faults.swipesDropped = 1;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), endLine));
}

TEST_F(SpaceManagerTour, GoesOnWithTheNextDirectionAfterASkip) {
  desktop.faults.swipesDropped = 2;
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRLLL");
  EXPECT_THAT(logged(), ElementsAre(startLine(4), retryLine(1), skipLine(1), retryLine(4), skipLine(4), endLine));
}

TEST_F(SpaceManagerTour, TakesALateArrivalAfterARetryWithoutLosingItsWay) {
  desktop.faults.swipesDelayedBy = 1s;
  startTour();
  desktop.advance(30s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion"));
}

// A timeout knows its step by the number alone, and so one of an earlier tour takes the same step of the next for its
// own; the step's own timeout then finds it repeated already.
TEST_F(SpaceManagerTour, AdvancesAtItsTimeoutAStepThatHasBeenRepeatedAlready) {
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
  EXPECT_EQ(swipesSinceStart().back(), (Swipe{1700ms, right}));
}

// --- The hard timeout

class SpaceManagerLongTour : public SpaceManagerTour {
 protected:
  SpaceManagerLongTour() : SpaceManagerTour(6) {}

  static std::vector<std::string> linesOfSkippedSteps(int steps, int skipped) {
    std::vector<std::string> lines = {startLine(steps)};
    for (int step = 1; step <= skipped; ++step) {
      lines.push_back(retryLine(step));
      lines.push_back(skipLine(step));
    }
    return lines;
  }
};

TEST_F(SpaceManagerLongTour, IsCutOffAfter20SecondsWithoutPermission) {
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

TEST_F(SpaceManagerLongTour, DoesNothingMoreAfterTheCut) {
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

TEST_F(SpaceManagerLongTour, EndsByItselfAfter19200MillisecondsWithFiveDesktopsAndNoPermission) {
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

TEST_F(SpaceManagerTour, PassesItsHardTimeoutInSilenceAfterItsEnd) {
  startTour();
  desktop.advance(60s);
  EXPECT_THAT(logged(), ElementsAre(startLine(4), endLine));
  EXPECT_EQ(history.size(), 3U);
}

// --- One tour after another

TEST_F(SpaceManagerTour, CanBeTakenAgain) {
  startTour();
  desktop.advance(30s);
  manager.performAutoTour([this] { happens("second completion"); });
  desktop.advance(30s);
  EXPECT_EQ(directions(), "RRLLRRLL");
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion",
                                   SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "second completion"));
}

TEST_F(SpaceManagerTour, CompletesATourThatItsCompletionStarted) {
  startTourByHand();
  onEvent = [this](const std::string& event) {
    if (event == "completion") {
      desktop.faults.allSwipesDropped = false;
      manager.performAutoTour([this] { happens("second completion"); });
    }
  };
  desktop.advance(40s);
  EXPECT_EQ(history.back(), "second completion");
}

TEST_F(SpaceManagerTour, EndsInSilenceWithTheModel) {
  desktop.faults.allSwipesDropped = true;
  follow();
  std::optional<SpaceManager> brief(std::in_place, recorder);
  brief->update(manager.spaces(), manager.activeSpaceID());
  brief->performAutoTour([this] { happens("completion"); });
  desktop.advance(1300ms);
  const std::size_t posted = recorder.posted().size();
  brief.reset();
  desktop.reportActiveSpaceChange();
  desktop.advance(60s);
  EXPECT_EQ(recorder.posted().size(), posted);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart));
}

}  // namespace
}  // namespace roomlattice::tests

#include "preferences/PreferencesStore.h"
#include "tests/spaces/SpaceManagerTourFixture.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::simulated::NewSpace;
using platform::simulated::spaceType::fullScreen;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct TourRow {
  int desktops;
  std::size_t start;
  std::string directions;
};

class SpaceManagerTourQueueTest : public SpaceManagerTourTest, public ::testing::WithParamInterface<TourRow> {
 protected:
  SpaceManagerTourQueueTest() : SpaceManagerTourTest(GetParam().desktops) {}
};

INSTANTIATE_TEST_SUITE_P(Starts, SpaceManagerTourQueueTest,
                         ::testing::Values(TourRow{2, 0, "RL"}, TourRow{2, 1, "LR"}, TourRow{3, 0, "RRLL"},
                                           TourRow{3, 1, "RLLR"}, TourRow{3, 2, "LLRR"}, TourRow{5, 1, "RRRLLLLR"},
                                           TourRow{5, 4, "LLLLRRRR"}, TourRow{12, 0, "RRRRRRRRRRRLLLLLLLLLLL"}),
                         [](const auto& row) {
                           return "Of" + std::to_string(row.param.desktops) + "From" + std::to_string(row.param.start);
                         });

TEST_P(SpaceManagerTourQueueTest, GoesToTheLastDesktopBackToTheFirstAndForwardToTheStart) {
  desktop.switchTo(desktop.desktopAt(GetParam().start));
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), GetParam().directions);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(GetParam().start));
  EXPECT_THAT(logged(), ElementsAre(startLine(static_cast<int>(GetParam().directions.size())), endLine));
}

TEST_F(SpaceManagerTourTest, VisitsTheDesktopsOfAllDisplaysAndNoFullScreenSpace) {
  desktop.addDesktop(NewSpace{.type = fullScreen, .position = 1});
  desktop.addDisplay("Display 2", 2);
  desktop.addDesktop(NewSpace{.type = fullScreen, .display = 1, .position = 0});
  startTour();
  desktop.advance(20s);
  EXPECT_EQ(directions(), "RRRRLLLL");
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SpaceManagerTourTest, UsesTheAnimatedSwipeWhateverThePreference) {
  PreferencesStore::shared().setInstantMenuSwitch(true);
  startTourByHand();
  advanceTo(200ms);
  EXPECT_EQ(recorder.posted().size(), 10U);
}

TEST_F(SpaceManagerTourTest, SwipesBeforeItReturns) {
  startTourByHand();
  EXPECT_THAT(swipesSinceStart(), ElementsAre(Swipe{0ms, Right}));
}

TEST_F(SpaceManagerTourTest, AnnouncesTheStartAfterTheLogLineAndBeforeTheFirstSwipe) {
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

TEST_F(SpaceManagerTourTest, EndsWithTheLogLineThenTheNotificationThenTheCompletion) {
  std::vector<std::string> lastLines;
  onEvent = [&](const std::string&) { lastLines.push_back(logged().back()); };
  startTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre("SpaceManagerTourWillStart", "SpaceManagerTourDidEnd", "completion"));
  EXPECT_THAT(lastLines, ElementsAre(startLine(4), endLine, endLine));
}

TEST_F(SpaceManagerTourTest, NeedsNoCompletion) {
  follow();
  manager.performAutoTour();
  desktop.advance(20s);
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd));
}

TEST_F(SpaceManagerTourTest, LetsGoOfTheCompletionAfterTheCall) {
  const auto held = std::make_shared<int>(0);
  follow();
  manager.performAutoTour([held] {});
  EXPECT_EQ(held.use_count(), 2);
  desktop.advance(10s);
  EXPECT_EQ(held.use_count(), 1);
}

// --- Nothing to tour

class SpaceManagerTourOfNothingTest : public SpaceManagerTourTest {
 protected:
  using SpaceManagerTourTest::SpaceManagerTourTest;

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

TEST_F(SpaceManagerTourOfNothingTest, CompletesAtOnceWithoutDesktops) {
  expectOnlyACompletion({}, 0);
}

TEST_F(SpaceManagerTourOfNothingTest, CompletesAtOnceWithOneDesktop) {
  expectOnlyACompletion({{.spaceID = 1}}, 1);
}

TEST_F(SpaceManagerTourOfNothingTest, CompletesAtOnceWithOneDesktopBesideFullScreenSpaces) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2, .type = 4}, {.spaceID = 3, .type = 4}}, 1);
}

TEST_F(SpaceManagerTourOfNothingTest, CompletesAtOnceWhenTheActiveDesktopIsUnknown) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2}}, 3);
}

TEST_F(SpaceManagerTourOfNothingTest, CompletesAtOnceFromAFullScreenSpace) {
  expectOnlyACompletion({{.spaceID = 1}, {.spaceID = 2, .type = 4}, {.spaceID = 3}}, 2);
}

// --- One tour after another

TEST_F(SpaceManagerTourTest, CanBeTakenAgain) {
  startTour();
  desktop.advance(30s);
  manager.performAutoTour([this] { happens("second completion"); });
  desktop.advance(30s);
  EXPECT_EQ(directions(), "RRLLRRLL");
  EXPECT_THAT(history, ElementsAre(SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "completion",
                                   SpaceManager::tourWillStart, SpaceManager::tourDidEnd, "second completion"));
}

TEST_F(SpaceManagerTourTest, CompletesATourThatItsCompletionStarted) {
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

TEST_F(SpaceManagerTourTest, EndsInSilenceWithTheModel) {
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

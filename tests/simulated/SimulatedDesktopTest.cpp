#include "platform/simulated/SimulatedDesktop.h"

#include "tests/support/SimulatedFixture.h"

#include <set>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Duration;
using platform::SpaceID;

/// Counts what the workspace reports to the program.
class SimulatedDesktopTest : public SimulatedFixture {
 protected:
  SimulatedDesktopTest()
      : observer_(platform().notifications().workspaceCenter().observe(
            platform::notification::activeSpaceDidChange,
            [this] { activeAtReports_.push_back(desktop.activeSpace()); })) {}

  std::size_t reports() const { return activeAtReports_.size(); }

  std::vector<SpaceID> activeAtReports_;
  platform::Registration observer_;
};

TEST_F(SimulatedDesktopTest, StartsOnTheFirstOfThreeDesktops) {
  ASSERT_EQ(desktop.spaces().regular().size(), 3U);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  EXPECT_EQ(desktop.desktopAt(3), 0U);
}

TEST_F(SimulatedDesktopTest, GivesEverySpaceIdentifiersOfItsOwn) {
  desktop.removeDesktop(desktop.desktopAt(2));
  desktop.addDesktop();
  desktop.enterFullScreen();
  desktop.addDisplay("Display 2", 2);
  std::set<SpaceID> identifiers;
  std::set<std::string> uuids;
  for (const auto& space : desktop.spaces().all()) {
    identifiers.insert(space.id);
    uuids.insert(space.uuid);
  }
  EXPECT_EQ(identifiers.size(), 6U);
  EXPECT_EQ(uuids.size(), 6U);
}

TEST_F(SimulatedDesktopTest, ReportsASwitchOnceItIsMade) {
  desktop.switchTo(desktop.desktopAt(2));
  EXPECT_EQ(activeAtReports_, std::vector{desktop.desktopAt(2)});
}

TEST_F(SimulatedDesktopTest, ReportsNothingWhereNothingChanges) {
  desktop.switchTo(desktop.activeSpace());
  desktop.switchTo(9999);
  desktop.removeDesktop(9999);
  desktop.moveDesktop(desktop.desktopAt(0), 0);
  EXPECT_EQ(reports(), 0U);
}

TEST_F(SimulatedDesktopTest, ReportsAnotherListOfDesktops) {
  const SpaceID added = desktop.addDesktop({.uuid = "mine", .position = 1});
  EXPECT_EQ(reports(), 1U);
  EXPECT_EQ(desktop.desktopAt(1), added);
  EXPECT_EQ(desktop.spaces().find(added)->uuid, "mine");
  desktop.moveDesktop(added, 0);
  EXPECT_EQ(reports(), 2U);
  desktop.removeDesktop(added);
  EXPECT_EQ(reports(), 3U);
}

TEST_F(SimulatedDesktopTest, KeepsListChangesToItselfWhereTheyAreNotReported) {
  desktop.faults.listChangesNotReported = true;
  desktop.addDesktop();
  desktop.moveDesktop(desktop.desktopAt(2), 1);
  EXPECT_EQ(reports(), 0U);
  desktop.removeDesktop(desktop.activeSpace());
  EXPECT_EQ(reports(), 1U) << "another desktop is active";
}

TEST_F(SimulatedDesktopTest, GoesToANewSpaceBesideTheActiveOneForFullScreen) {
  const SpaceID fullScreen = desktop.enterFullScreen();
  EXPECT_EQ(desktop.activeSpace(), fullScreen);
  EXPECT_EQ(desktop.spaces().all()[1].id, fullScreen);
  EXPECT_FALSE(desktop.spaces().find(fullScreen)->isRegular());
  EXPECT_EQ(activeAtReports_, std::vector{fullScreen});
  desktop.removeDesktop(fullScreen);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SimulatedDesktopTest, HasNothingToGoToWithoutAnyDisplay) {
  desktop.removeDisplay(0);
  EXPECT_EQ(desktop.enterFullScreen(), 0U);
  EXPECT_EQ(desktop.activeSpace(), 0U);
  EXPECT_EQ(platform().windowServer().managedDisplaySpaces(), platform::Value(platform::Value::Array{}));
}

TEST_F(SimulatedDesktopTest, ReportsOnceWhenTheKeyboardGoesToAnotherDisplay) {
  const std::size_t display = desktop.addDisplay("Display 2", 2);
  activeAtReports_.clear();
  desktop.giveKeyboardTo(display);
  EXPECT_EQ(activeAtReports_, std::vector{desktop.desktopAt(3)});
}

TEST_F(SimulatedDesktopTest, ReportsWhateverTheScriptWants) {
  desktop.reportActiveSpaceChange();
  EXPECT_EQ(reports(), 1U);
}

TEST_F(SimulatedDesktopTest, RunsActsOfTheScriptAtTheirTime) {
  std::vector<Duration> times;
  desktop.after(2s, [&] { times.push_back(desktop.now()); });
  desktop.advance(3s);
  EXPECT_EQ(times, std::vector<Duration>{2s});
}

TEST_F(SimulatedDesktopTest, StopsTheProgramsTimersWhileAsleep) {
  int ticks = 0;
  const auto timer = platform().dispatcher().repeat(1s, 1s, [&] { ++ticks; });
  desktop.advance(2500ms);
  desktop.sleepFor(8h);
  EXPECT_EQ(ticks, 2);
  desktop.advance(500ms);
  EXPECT_EQ(ticks, 3);
}

TEST_F(SimulatedDesktopTest, WakesOnlyFromSleep) {
  int wakes = 0;
  const auto observer =
      platform().notifications().workspaceCenter().observe(platform::notification::didWake, [&] { ++wakes; });
  desktop.wake();
  EXPECT_EQ(wakes, 0);
  desktop.sleep();
  desktop.wake();
  EXPECT_EQ(wakes, 1);
}

TEST_F(SimulatedDesktopTest, KeepsItsStateFromOneProgramToTheNext) {
  desktop.switchTo(desktop.desktopAt(1));
  platform().system().log("hello");
  platform().system().setPasteboardString("text");
  observer_.cancel();
  relaunch();
  EXPECT_EQ(platform().windowServer().activeSpace(), desktop.desktopAt(1));
  EXPECT_EQ(desktop.log().texts(), std::vector<std::string>{"hello"});
  EXPECT_EQ(desktop.pasteboard(), "text");
}

}  // namespace
}  // namespace roomlattice::tests

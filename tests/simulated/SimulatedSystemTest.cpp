#include "platform/simulated/SimulatedSystem.h"

#include "tests/support/SimulatedFixture.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::ActivityKind;
using platform::Duration;
using platform::LaunchError;
using platform::ProcessOutput;
using platform::simulated::ChildProcesses;

class SimulatedSystemTest : public SimulatedFixture {
 protected:
  platform::simulated::SimulatedSystem& system() { return platform().system(); }
};

TEST_F(SimulatedSystemTest, WritesLinesToTheLogUnderTheProgramsName) {
  system().log("hello");
  ASSERT_EQ(desktop.log().lines().size(), 1U);
  EXPECT_EQ(desktop.log().lines()[0].process, "Roomlattice");
  EXPECT_EQ(desktop.log().lines()[0].text, "hello");
}

TEST_F(SimulatedSystemTest, RunsExecutablesWithTheirArguments) {
  desktop.childProcesses().install("/bin/echo", {.run = [](const std::vector<std::string>& arguments) {
                                     return ProcessOutput{arguments.at(0) + "\n"};
                                   }});
  const auto outcome = system().run("/bin/echo", {"hello", "there"});
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(outcome));
  EXPECT_EQ(std::get<ProcessOutput>(outcome).bytes, "hello\n");
  EXPECT_EQ(desktop.childProcesses().launches(),
            (std::vector<ChildProcesses::Launch>{{"/bin/echo", {"hello", "there"}}}));
}

TEST_F(SimulatedSystemTest, CannotLaunchWhatIsNotThere) {
  desktop.childProcesses().remove("/usr/bin/log");
  const auto outcome = system().run("/usr/bin/log", {});
  ASSERT_TRUE(std::holds_alternative<LaunchError>(outcome));
  EXPECT_EQ(std::get<LaunchError>(outcome).localizedDescription, "There is no file /usr/bin/log.");
}

TEST_F(SimulatedSystemTest, ReportsALaunchErrorOfTheScriptsChoice) {
  desktop.childProcesses().install("/bin/secret", {.run = [](const auto&) { return LaunchError{"Not permitted."}; }});
  const auto outcome = system().run("/bin/secret", {});
  ASSERT_TRUE(std::holds_alternative<LaunchError>(outcome));
  EXPECT_EQ(std::get<LaunchError>(outcome).localizedDescription, "Not permitted.");
}

TEST_F(SimulatedSystemTest, HasALogToolThatPrintsTheLog) {
  system().log("hello");
  const auto outcome = system().run("/usr/bin/log", {"show", "--predicate", "process == \"Roomlattice\""});
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(outcome));
  EXPECT_EQ(std::get<ProcessOutput>(outcome).bytes, "0.000 Roomlattice: hello\n");
}

TEST_F(SimulatedSystemTest, BlocksTheBackgroundQueueForAsLongAsAProcessRuns) {
  desktop.childProcesses().install("/bin/slow", "done", 3s);
  std::vector<std::pair<std::string, Duration>> events;
  platform().dispatcher().background([&] {
    const auto outcome = system().run("/bin/slow", {});
    platform().dispatcher().async(
        [&, outcome] { events.emplace_back(std::get<ProcessOutput>(outcome).bytes, desktop.now()); });
  });
  platform().dispatcher().asyncAfter(1s, [&] { events.emplace_back("main", desktop.now()); });
  desktop.advance(5s);
  EXPECT_EQ(events, (std::vector<std::pair<std::string, Duration>>{{"main", 1s}, {"done", 3s}}));
}

TEST_F(SimulatedSystemTest, PutsTextOnThePasteboard) {
  EXPECT_EQ(desktop.pasteboard(), std::nullopt);
  system().setPasteboardString("hello");
  system().setPasteboardString("there");
  EXPECT_EQ(desktop.pasteboard(), "there");
}

TEST_F(SimulatedSystemTest, ListsActivitiesAsLongAsTheyLast) {
  constexpr auto kind = ActivityKind::UserInitiatedAllowingIdleSystemSleep;
  platform::Registration first = system().beginActivity(kind, "first");
  const platform::Registration second = system().beginActivity(kind, "second");
  ASSERT_EQ(system().activities().size(), 2U);
  first.cancel();
  ASSERT_EQ(system().activities().size(), 1U);
  EXPECT_EQ(system().activities()[0].kind, kind);
  EXPECT_EQ(system().activities()[0].reason, "second");
}

}  // namespace
}  // namespace roomlattice::tests

#include "platform/linux/ctl/CtlRun.h"

#include "platform/linux/control/ControlService.h"
#include "tests/linux/control/FakeCommands.h"
#include "tests/linux/session/BusFixture.h"

#include <csignal>
#include <gmock/gmock.h>
#include <optional>

namespace roomlattice::tests {
namespace {

using platform::linux::ControlService;
using platform::linux::MessageBus;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The program itself, and what it is to reach.
class CtlRunTest : public BusTest {
 protected:
  CtlRunTest() { environment_.set("DISPLAY", ":7"); }

  void serve() {
    service_.emplace(bus_, "org.roomlattice.Roomlattice.Display_7_0", commands_, [](const std::string&) {});
  }

  static std::unique_ptr<ChildProcess> start(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ROOMLATTICECTL_PROGRAM);
    return std::make_unique<ChildProcess>(arguments);
  }

  struct Result {
    int status = -1;
    std::string output;
    std::string errorOutput;
  };

  static Result run(const std::vector<std::string>& arguments) {
    const auto process = start(arguments);
    EXPECT_TRUE(waitFor([&] { return !process->isRunning(); }));
    return {process->waitForExitStatus().value_or(-1), process->output(), process->errorOutput()};
  }

  Environment environment_;
  FakeCommands commands_;
  MessageBus bus_{MessageBus::Kind::Session};
  std::optional<ControlService> service_;
};

TEST_F(CtlRunTest, CarriesOutEachCommand) {
  serve();
  const std::vector<std::vector<std::string>> all{{"switch", "Größe"},
                                                  {"next"},
                                                  {"previous"},
                                                  {"rename", "Web"},
                                                  {"rename", "1", ""},
                                                  {"labels", "show"},
                                                  {"labels", "hide"},
                                                  {"menu"},
                                                  {"preferences"},
                                                  {"tour"},
                                                  {"quit"}};
  for (const std::vector<std::string>& arguments : all) {
    const Result result = run(arguments);
    EXPECT_EQ(result.status, 0) << arguments[0] << result.errorOutput;
    EXPECT_EQ(result.output + result.errorOutput, "");
  }
  EXPECT_THAT(commands_.record, ElementsAre("switch Größe", "next", "previous", "rename to Web", "rename 1 to ",
                                            "show labels", "hide labels", "menu", "preferences", "tour", "quit"));
}

TEST_F(CtlRunTest, PrintsDesktopsForPeopleAndPrograms) {
  serve();
  EXPECT_THAT(run({"list"}).output, HasSubstr("* 1  Mail   #ff0000  a  D\n  -  Film"));
  EXPECT_EQ(run({"current"}).output, "* 1  Mail  #ff0000  a  D\n");
  EXPECT_THAT(run({"list", "--json"}).output, ::testing::StartsWith("[\n"));
  EXPECT_THAT(run({"current", "--json"}).output, HasSubstr("\"name\": \"Mail\""));
  EXPECT_EQ(run({"current", "--format={number}: {name}"}).output, "1: Mail\n");
}

TEST_F(CtlRunTest, EndsWithOneAndTheReasonWhereItIsRefused) {
  serve();
  commands_.result = platform::CommandError{platform::CommandErrorKind::NoSuchDesktop, "no desktop is called 'x'"};
  const Result result = run({"switch", "x"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errorOutput, "roomlatticectl: no desktop is called 'x'\n");
  EXPECT_EQ(run({"rename", "\xff"}).status, 1);
  commands_.list.clear();
  EXPECT_EQ(run({"current"}).status, 1);
}

TEST_F(CtlRunTest, EndsWithTwoWhereItIsNotUnderstood) {
  serve();
  const Result result = run({"explode"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.errorOutput, HasSubstr("explode"));
  EXPECT_THAT(commands_.record, IsEmpty());
}

TEST_F(CtlRunTest, EndsWithThreeWhereNothingRuns) {
  for (const char* command : {"list", "current", "next", "watch"}) {
    const Result result = run({command});
    EXPECT_EQ(result.status, 3) << command;
    EXPECT_EQ(result.errorOutput, "roomlatticectl: Roomlattice is not running\n");
  }
}

TEST_F(CtlRunTest, EndsWithThreeWhereThereIsNoBus) {
  daemon_.stop();
  const std::vector<std::vector<std::string>> all{{"list"}, {"next"}, {"watch"}, {"watch", "--format=polybar"}};
  for (const std::vector<std::string>& arguments : all) {
    const Result result = run(arguments);
    EXPECT_EQ(result.status, 3) << arguments[0];
    EXPECT_EQ(result.errorOutput, "roomlatticectl: there is no session bus\n") << arguments[0];
  }
}

TEST_F(CtlRunTest, SaysWhereNothingCanBeWritten) {
  serve();
  for (const char* arguments :
       {"list", "list --json", "current", "current --format={name}", "watch --format={name}", "--help", "--version"}) {
    ChildProcess shell({"bash", "-c", "exec \"$0\" " + std::string(arguments) + " >/dev/full", ROOMLATTICECTL_PROGRAM});
    EXPECT_TRUE(waitFor([&] { return !shell.isRunning(); })) << arguments;
    EXPECT_EQ(shell.waitForExitStatus(), 1) << arguments;
    EXPECT_EQ(shell.errorOutput(), "roomlatticectl: cannot write to standard output\n") << arguments;
  }
}

TEST_F(CtlRunTest, WatchesNoLongerThanItCanWrite) {
  serve();
  ChildProcess shell({"bash", "-c", "exec \"$0\" watch >/dev/full", ROOMLATTICECTL_PROGRAM});
  EXPECT_TRUE(waitFor([&] {
    commands_.tell({{platform::DesktopChangeKind::Switched, commands_.list[2]}});
    return !shell.isRunning();
  }));
  EXPECT_EQ(shell.waitForExitStatus(), 1);
  EXPECT_EQ(shell.errorOutput(), "roomlatticectl: cannot write to standard output\n");
}

TEST_F(CtlRunTest, MeansTheProgramOfItsDisplay) {
  serve();
  EXPECT_EQ(run({"next"}).status, 0);
  EXPECT_EQ(run({"--display=:8", "next"}).status, 3);
  environment_.set("DISPLAY", ":9");
  EXPECT_EQ(run({"next"}).status, 3);
  EXPECT_EQ(run({"--display=unix:7.0", "next"}).status, 0);
  environment_.set("DISPLAY", std::nullopt);
  EXPECT_EQ(run({"next"}).status, 0);
}

TEST_F(CtlRunTest, TellsOfItselfWithoutAnythingToReach) {
  daemon_.stop();
  EXPECT_THAT(run({"--help"}).output, ::testing::StartsWith("Usage: roomlatticectl"));
  EXPECT_THAT(run({"--version"}).output, ::testing::MatchesRegex("roomlatticectl [0-9.]+\n"));
  EXPECT_EQ(run({"--help"}).status, 0);
}

TEST_F(CtlRunTest, PrintsALineForEveryChangeUntilTheProgramEnds) {
  serve();
  const auto watch = start({"watch"});
  const auto watchJson = start({"watch", "--json"});
  // Again and again, as nobody knows when it has begun to hear.
  EXPECT_TRUE(waitFor([&] {
    commands_.tell({{platform::DesktopChangeKind::Switched, commands_.list[2]}});
    return !watch->output().empty() && !watchJson->output().empty();
  }));
  EXPECT_THAT(watch->output(), ::testing::StartsWith("switched 2 Größe\n"));
  EXPECT_THAT(watchJson->output(), ::testing::StartsWith("{\"change\":\"switched\",\"desktop\":{\"active\":false,"));
  service_.reset();
  EXPECT_TRUE(waitFor([&] { return !watch->isRunning() && !watchJson->isRunning(); }));
  EXPECT_EQ(watch->waitForExitStatus(), 3);
}

TEST_F(CtlRunTest, ShowsABarTheDesktopInFrontAlsoOfAProgramStartedLater) {
  const auto watch = start({"watch", "--format={number} {name}"});
  EXPECT_TRUE(waitFor([&] { return watch->output() == "\n"; }));
  serve();
  EXPECT_TRUE(waitFor([&] { return watch->output() == "\n1 Mail\n"; }));
  commands_.list[0].isActive = false;
  commands_.list[2].isActive = true;
  commands_.tell({{platform::DesktopChangeKind::Switched, commands_.list[2]}});
  EXPECT_TRUE(waitFor([&] { return watch->output() == "\n1 Mail\n2 Größe\n"; }));
  commands_.tell({{platform::DesktopChangeKind::Renamed, commands_.list[0]}});
  service_.reset();
  EXPECT_TRUE(waitFor([&] { return watch->output() == "\n1 Mail\n2 Größe\n\n"; }));
  EXPECT_TRUE(watch->isRunning());
}

TEST_F(CtlRunTest, EndsWhenNobodyReadsWhatItWatches) {
  serve();
  ChildProcess shell({"bash", "-c", R"("$0" watch --format={name} | head -n 1)", ROOMLATTICECTL_PROGRAM});
  EXPECT_TRUE(waitFor([&] { return !shell.isRunning(); }));
  EXPECT_EQ(shell.output(), "Mail\n");
}

}  // namespace
}  // namespace roomlattice::tests

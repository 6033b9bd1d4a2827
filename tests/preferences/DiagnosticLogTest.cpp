#include "preferences/DiagnosticLog.h"

#include "tests/preferences/LogCommand.h"
#include "tests/support/SimulatedFixture.h"

#include <algorithm>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::LaunchError;
using platform::ProcessOutput;

const std::string nothingLogged = "(no log output \u2014 make sure you reproduced the issue recently)";

class DiagnosticLogTest : public SimulatedFixture {
 protected:
  std::string gather() { return gatherDiagnosticLog(platform().system(), platform().system().recentLog()); }

  std::string gatherWhenToolPrints(const std::string& output) {
    desktop.childProcesses().install(logTool, output);
    return gather();
  }
};

TEST_F(DiagnosticLogTest, OffersTheCommandAsAUserWouldTypeIt) {
  const platform::LogQuery query = platform().system().recentLog();
  EXPECT_EQ(query.command, logCommand);
  EXPECT_EQ(query.command.size(), 74U);
}

TEST_F(DiagnosticLogTest, RunsTheLogToolWithSevenArguments) {
  gather();
  EXPECT_EQ(
      desktop.childProcesses().launches(),
      (std::vector<platform::simulated::ChildProcesses::Launch>{
          {logTool, {"show", "--predicate", "process == \"Roomlattice\"", "--last", "10m", "--style", "compact"}}}));
}

TEST_F(DiagnosticLogTest, HoldsTheLinesOfTheProgramOfTheLastTenMinutes) {
  platform().system().log("[Roomlattice] long ago");
  desktop.advance(10min + 1ms);
  platform().system().log("[Roomlattice] just now");
  desktop.log().write("Another", "something else");
  const std::string text = gather();
  EXPECT_NE(text.find("[Roomlattice] just now"), std::string::npos);
  EXPECT_EQ(text.find("long ago"), std::string::npos);
  EXPECT_EQ(text.find("something else"), std::string::npos);
}

TEST_F(DiagnosticLogTest, IsWhatTheToolPrintsUnchanged) {
  for (const std::string& output :
       {std::string("one\ntwo\n"), std::string("one"), std::string("\n"), std::string("  \r\n"),
        std::string("\u65e5\u672c \U0001F600\n"), std::string("a\0b\n", 4), std::string("\uFEFFone\n")}) {
    EXPECT_EQ(gatherWhenToolPrints(output), output);
  }
}

TEST_F(DiagnosticLogTest, StandsInForNothing) {
  EXPECT_EQ(gatherWhenToolPrints(""), nothingLogged);
  EXPECT_EQ(nothingLogged.size(), 63U);
}

TEST_F(DiagnosticLogTest, StandsInForBytesThatAreNotUtf8) {
  for (const std::string bytes : {"line\n\xFF\n", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(gatherWhenToolPrints(bytes), nothingLogged);
  }
}

TEST_F(DiagnosticLogTest, SaysWhyTheToolCouldNotBeRunAndWhatToTypeInstead) {
  desktop.childProcesses().install(logTool, {.run = [](const auto&) -> platform::simulated::Executable::Outcome {
                                     return LaunchError{"Permission denied."};
                                   }});
  EXPECT_EQ(gather(), "Failed to run log command: Permission denied.\n\nRun this in Terminal instead:\n" + logCommand);
}

TEST_F(DiagnosticLogTest, DoesNotStopTheProgramWithoutATool) {
  desktop.childProcesses().remove(logTool);
  const std::string text = gather();
  EXPECT_TRUE(text.starts_with("Failed to run log command: "));
  EXPECT_TRUE(text.ends_with("\n\nRun this in Terminal instead:\n" + logCommand));
}

TEST(DiagnosticLogLinesTest, AreCountedUnlessTheyAreEmpty) {
  struct Case {
    const char* text;
    std::size_t count;
  };
  for (const auto& [text, count] : {Case{"", 0}, Case{"\n", 0}, Case{"\n\n\n", 0}, Case{"a", 1}, Case{"a\n", 1},
                                    Case{"\na", 1}, Case{"a\nb\nc\n", 3}, Case{"a\nb\nc", 3},
                                    Case{"\n\na\n\n\nb\n\nc\n\n", 3}, Case{" \n\t\n", 2}, Case{"\r\n", 1}}) {
    EXPECT_EQ(countLogLines(text), count) << '"' << text << '"';
  }
}

}  // namespace
}  // namespace roomlattice::tests

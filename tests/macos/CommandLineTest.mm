#import "platform/macos/CommandLine.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace roomlattice::platform::macos {
namespace {

struct Answer {
  std::optional<int> status;
  std::string output;
};

Answer answer(std::initializer_list<const char*> arguments) {
  std::vector<const char*> line{"Roomlattice"};
  line.insert(line.end(), arguments);
  testing::internal::CaptureStdout();
  const std::optional<ExitStatus> status = answerCommandLine(static_cast<int>(line.size()), line.data());
  return {status ? std::optional(status->code) : std::nullopt, testing::internal::GetCapturedStdout()};
}

TEST(CommandLineTest, TellsHowToUseIt) {
  for (const char* option : {"--help", "-h"}) {
    const Answer help = answer({option});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.find("Usage: Roomlattice"), 0U);
  }
}

TEST(CommandLineTest, TellsItsVersion) {
  const Answer version = answer({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output.find("Roomlattice "), 0U);
}

TEST(CommandLineTest, LeavesTheSystemsArgumentsToTheSystem) {
  for (const char* argument : {"-psn_0_12345", "-NSDoubleLocalizedStrings", "YES"}) {
    const Answer none = answer({argument});
    EXPECT_EQ(none.status, std::nullopt);
    EXPECT_EQ(none.output, "");
  }
}

}  // namespace
}  // namespace roomlattice::platform::macos

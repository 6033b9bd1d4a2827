#include "tests/conformance/ConformanceTest.h"

#include <string>
#include <variant>

namespace roomlattice::tests {
namespace {

using platform::LaunchError;
using platform::ProcessOutput;

class SystemConformance : public ConformanceTest {
 protected:
  std::variant<ProcessOutput, LaunchError> runShell(const std::string& script) {
    return platform().system().run("/bin/sh", {"-c", script});
  }
};

TEST_F(SystemConformance, ReadsAllThatAChildWrites) {
  const auto result = runShell("printf first; printf second >&2; printf third");
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(result));
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes, "firstsecondthird");
}

TEST_F(SystemConformance, ReadsMoreThanAPipeHolds) {
  const auto result = runShell("i=0; while [ $i -lt 20000 ]; do echo 0123456789abcde; i=$((i+1)); done");
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(result));
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes.size(), 320000U);
}

TEST_F(SystemConformance, KeepsBytesThatAreNoText) {
  const auto result = runShell("printf 'a\\000\\377b'");
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(result));
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes, std::string("a\0\xff"
                                                               "b",
                                                               4));
}

TEST_F(SystemConformance, DoesNotLookAtTheExitStatus) {
  const auto result = runShell("printf output; exit 3");
  ASSERT_TRUE(std::holds_alternative<ProcessOutput>(result));
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes, "output");
}

TEST_F(SystemConformance, SaysWhyAChildCannotBeStarted) {
  const auto result = platform().system().run("/nonexistent/tool", {});
  ASSERT_TRUE(std::holds_alternative<LaunchError>(result));
  EXPECT_FALSE(std::get<LaunchError>(result).localizedDescription.empty());
}

TEST_F(SystemConformance, TakesAnyTextForTheLogAndThePasteboard) {
  for (const char* text : {"", "100% \u2026 %s %n", "two\nlines", "\xff\xfe"}) {
    platform().system().log(text);
    platform().system().setPasteboardString(text);
  }
}

TEST_F(SystemConformance, EndsActivitiesInAnyOrder) {
  using platform::ActivityKind;
  platform::Registration first =
      platform().system().beginActivity(ActivityKind::UserInitiatedAllowingIdleSystemSleep, "first");
  platform::Registration second =
      platform().system().beginActivity(ActivityKind::UserInitiatedAllowingIdleSystemSleep, "second");
  first = {};
  second = {};
}

}  // namespace
}  // namespace roomlattice::tests

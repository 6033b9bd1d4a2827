#include "platform/linux/system/LogLine.h"

#include "tests/linux/session/Environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::logSince;
using platform::linux::stampedLogLine;
using std::chrono::system_clock;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

const auto noon = system_clock::from_time_t(1700000000);

TEST(LogLineTest, IsStampedWithTimeProgramAndProcess) {
  EXPECT_THAT(
      stampedLogLine(system_clock::now(), "[Roomlattice] tour end"),
      MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}[+-][0-9]{4} Roomlattice\\[" +
                   std::to_string(getpid()) + "\\] \\[Roomlattice\\] tour end\n"));
}

TEST(LogLineTest, IsInLocalTime) {
  Environment environment;
  environment.set("TZ", "XYZ-2");
  EXPECT_THAT(stampedLogLine(noon + std::chrono::milliseconds(7), "x"),
              StartsWith("2023-11-15 00:13:20.007+0200 Roomlattice["));
}

TEST(LogLineSinceTest, KeepsTheLinesStampedAtThatTimeOrLater) {
  const std::string before = stampedLogLine(noon - std::chrono::milliseconds(1), "before");
  const std::string then = stampedLogLine(noon, "then");
  const std::string later = stampedLogLine(noon + std::chrono::hours(1), "later");
  EXPECT_EQ(logSince(noon, before + then + later), then + later);
}

TEST(LogLineSinceTest, ReadsStampsOfOtherTimeZones) {
  const std::string old = "2023-11-14 23:13:19.999+0100 Roomlattice[1] old\n";
  const std::string recent = "2023-11-14 17:13:20.000-0500 Roomlattice[1] recent\n";
  EXPECT_EQ(logSince(noon, old + recent), recent);
}

TEST(LogLineSinceTest, ReadsStampsOfAnyYear) {
  const std::string old = "1600-01-01 00:00:00.000+0000 Roomlattice[1] old\n";
  const std::string far = "2500-01-01 00:00:00.000+0000 Roomlattice[1] far\n";
  EXPECT_EQ(logSince(noon, old + far), far);
}

TEST(LogLineSinceTest, CountsALineWithoutAStampToTheOneBefore) {
  const std::string old = stampedLogLine(noon - std::chrono::hours(1), "a\nb");
  const std::string recent = stampedLogLine(noon, "c\nd");
  EXPECT_EQ(logSince(noon, "torn\n" + old + recent), recent);
}

TEST(LogLineSinceTest, EndsALastLineThatWasCutOff) {
  EXPECT_EQ(logSince(noon, stampedLogLine(noon, "whole") + "2023-"), stampedLogLine(noon, "whole") + "2023-\n");
  EXPECT_EQ(logSince(noon, ""), "");
}

}  // namespace
}  // namespace roomlattice::tests

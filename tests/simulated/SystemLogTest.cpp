#include "platform/simulated/SystemLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::simulated::LogLine;

class SystemLogTest : public ::testing::Test {
 protected:
  platform::simulated::VirtualTime time_;
  platform::simulated::SystemLog log_{time_};
};

TEST_F(SystemLogTest, StampsLinesWithTheWallClock) {
  time_.advance(1500ms);
  log_.write("Mail", "hello");
  time_.setAsleep(true);
  time_.advance(1h);
  time_.setAsleep(false);
  log_.write("Mail", "again");
  EXPECT_EQ(log_.lines(), (std::vector<LogLine>{{1500ms, "Mail", "hello"}, {1h + 1500ms, "Mail", "again"}}));
  EXPECT_EQ(log_.texts(), (std::vector<std::string>{"hello", "again"}));
}

TEST_F(SystemLogTest, ShowsTheLinesOfAProcess) {
  log_.write("Mail", "one");
  log_.write("Clock", "two");
  time_.advance(2s);
  log_.write("Mail", "three");
  EXPECT_EQ(log_.show({"show", "--predicate", "process == \"Mail\"", "--last", "10m", "--style", "compact"}),
            "0.000 Mail: one\n2.000 Mail: three\n");
}

TEST_F(SystemLogTest, ShowsOnlyWhatIsRecentEnough) {
  log_.write("Mail", "old");
  time_.advance(1s);
  log_.write("Mail", "recent");
  time_.advance(10min);
  EXPECT_EQ(log_.show({"show", "--last", "10m"}), "1.000 Mail: recent\n");
}

TEST_F(SystemLogTest, ShowsEverythingWhenNotToldWhat) {
  log_.write("Mail", "one");
  log_.write("Clock", "two");
  time_.advance(24h);
  EXPECT_EQ(log_.show({"show"}), "0.000 Mail: one\n0.000 Clock: two\n");
  EXPECT_EQ(log_.show({"show", "--last"}), log_.show({"show"}));
  EXPECT_EQ(log_.show({"show", "--last", "soon"}), log_.show({"show"}));
}

}  // namespace
}  // namespace roomlattice::tests

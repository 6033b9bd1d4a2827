#include "tests/linux/session/ChildProcess.h"
#include "tests/linux/session/Wait.h"
#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <gmock/gmock.h>
#include <random>
#include <sstream>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::LinuxDefaults;
using ::testing::IsSubsetOf;

class SettingsProcessesTest : public LinuxDefaultsTest {
 protected:
  std::unique_ptr<ChildProcess> writer(const std::string& key, int count) {
    return std::make_unique<ChildProcess>(
        std::vector<std::string>{SETTINGS_WRITER, path_.string(), key, std::to_string(count)});
  }

  static std::int64_t lastNumber(const std::string& lines) {
    std::istringstream numbers(lines);
    std::int64_t last = 0;
    for (std::int64_t number = 0; numbers >> number;) {
      last = number;
    }
    return last;
  }

  /// The number last stored under `key`; 0 before the first.
  std::int64_t number(const std::string& key) {
    const std::optional<Value> value = defaults().object(key);
    return value ? *value->asArray()->front().asInteger() : 0;
  }
};

TEST_F(SettingsProcessesTest, AreNeverLostBetweenTwo) {
  const auto first = writer("first", 150);
  const auto second = writer("second", 150);
  EXPECT_EQ(first->waitForExitStatus(), 0) << first->errorOutput();
  EXPECT_EQ(second->waitForExitStatus(), 0) << second->errorOutput();
  EXPECT_EQ(number("first"), 150);
  EXPECT_EQ(number("second"), 150);
}

TEST_F(SettingsProcessesTest, StayWholeWhenOneIsKilledAtAnyMoment) {
  std::mt19937 random(4711);  // the same moments in every run, as far as the system plays along
  std::uniform_int_distribution<int> readsBeforeKill(1, 100);
  defaults().set("kept", "for ever");
  for (int round = 0; round < 60; ++round) {
    const auto process = writer("key", 1000000);
    ASSERT_TRUE(waitFor([&] { return number("key") > 0; }));
    for (int reads = readsBeforeKill(random); reads > 0; --reads) {
      ASSERT_GT(number("key"), 0) << textOf(path_);
    }
    process->kill();
    ASSERT_GT(number("key"), 0) << textOf(path_);
    ASSERT_GE(number("key"), lastNumber(process->output()));
    ASSERT_EQ(defaults().object("kept"), Value("for ever"));
    ASSERT_THAT(names(), IsSubsetOf({"settings.json", "settings.json.lock", "settings.json.new"}));
    defaults().set("key", Value());
  }
  EXPECT_TRUE(reports_.empty());
}

}  // namespace
}  // namespace roomlattice::tests

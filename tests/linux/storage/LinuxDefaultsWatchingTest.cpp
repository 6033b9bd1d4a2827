#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"
#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <QCoreApplication>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::LinuxDefaults;

class LinuxDefaultsWatchingTest : public LinuxDefaultsTest {
 protected:
  LinuxDefaultsWatchingTest() { defaults_.watchFile(); }

  bool comesToHold(const Value& value) {
    return waitFor([&] { return defaults_.object("key") == value; });
  }

  ToolkitApplication<QCoreApplication> application_;
  LinuxDefaults defaults_{path_, [](const std::string&) {}, std::chrono::milliseconds(20)};
};

TEST_F(LinuxDefaultsWatchingTest, SeesWhatOthersWriteFromTheFirstFileOn) {
  EXPECT_EQ(defaults_.object("key"), std::nullopt);
  for (int round = 1; round <= 3; ++round) {
    writeText(path_, R"({"key": )" + std::to_string(round) + "}");
    EXPECT_TRUE(comesToHold(round)) << round;
  }
  std::filesystem::remove_all(path_.parent_path());
  EXPECT_TRUE(waitFor([this] { return !defaults_.object("key"); }));
  writeText(path_, R"({"key": "again"})");
  EXPECT_TRUE(comesToHold("again"));
}

TEST_F(LinuxDefaultsWatchingTest, SeesWhatOthersWriteAfterItHasWritten) {
  setAndWait(defaults_, "key", 1);
  EXPECT_TRUE(comesToHold(1));
  writeText(path_, R"({"key": 2})");
  EXPECT_TRUE(comesToHold(2));
  setAndWait(defaults_, "key", 3);
  EXPECT_EQ(textOf(path_), "{\n  \"key\": 3\n}\n");
}

}  // namespace
}  // namespace roomlattice::tests

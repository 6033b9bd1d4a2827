#include "platform/linux/storage/SettingsWatch.h"

#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"
#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <QCoreApplication>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::LinuxDefaults;
using platform::linux::SettingsWatch;

class SettingsWatchTest : public LinuxDefaultsTest {
 protected:
  void watch() {
    watch_ = std::make_unique<SettingsWatch>(defaults_, path_, [this] { ++changes_; });
  }

  bool comesTo(int changes) {
    return waitFor([this, changes] { return changes_ == changes; });
  }

  bool comesToHold(const Value& value) {
    return waitFor([&] { return defaults_.object("key") == value; });
  }

  void replaceFile(const std::string& text) const {
    const std::filesystem::path other = path_.parent_path() / "other";
    writeText(other, text);
    std::filesystem::rename(other, path_);
  }

  ToolkitApplication<QCoreApplication> toolkit_;
  LinuxDefaults defaults_{defaults()};
  int changes_ = 0;
  std::unique_ptr<SettingsWatch> watch_;
};

TEST_F(SettingsWatchTest, NoticesAFileThatIsWrittenOverTimeAfterTime) {
  writeText(path_, R"({"key": 0})");
  watch();
  for (int time = 1; time <= 3; ++time) {
    writeText(path_, R"({"key": )" + std::to_string(time) + "}");
    ASSERT_TRUE(comesTo(time));
    EXPECT_EQ(defaults_.object("key"), Value(time));
  }
}

TEST_F(SettingsWatchTest, NoticesAnotherFileInItsPlaceTimeAfterTime) {
  writeText(path_, R"({"key": 0})");
  watch();
  for (int time = 1; time <= 3; ++time) {
    replaceFile(R"({"key": )" + std::to_string(time) + "}");
    ASSERT_TRUE(comesTo(time));
    EXPECT_EQ(defaults_.object("key"), Value(time));
  }
}

TEST_F(SettingsWatchTest, NoticesTheFirstFileAlsoInAFolderThatIsMadeForIt) {
  watch();
  writeText(path_, R"({"key": 1})");
  EXPECT_TRUE(comesTo(1));
}

TEST_F(SettingsWatchTest, NoticesAChangeOfTheFileThatALinkLeadsTo) {
  const std::filesystem::path target = folder_.path() / "elsewhere" / "target.json";
  writeText(target, R"({"key": 0})");
  std::filesystem::create_directories(path_.parent_path());
  std::filesystem::create_symlink(target, path_);
  watch();
  writeText(target, R"({"key": 1})");
  EXPECT_TRUE(comesTo(1));
}

TEST_F(SettingsWatchTest, LetsReadersSeeWhatOthersWrite) {
  watch();
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

TEST_F(SettingsWatchTest, LetsReadersSeeWhatOthersWriteAfterAWriteOfItsOwn) {
  watch();
  setAndWait(defaults_, "key", 1);
  EXPECT_TRUE(comesToHold(1));
  writeText(path_, R"({"key": 2})");
  EXPECT_TRUE(comesToHold(2));
  setAndWait(defaults_, "key", 3);
  EXPECT_EQ(textOf(path_), "{\n  \"key\": 3\n}\n");
}

TEST_F(SettingsWatchTest, TakesNoNoticeOfWhatTheProgramItselfHasSet) {
  writeText(path_, R"({"key": 0})");
  watch();
  for (int value = 1; value <= 20; ++value) {
    defaults_.set("own", value);
    defaults_.set("number", value / 4.0);
    defaults_.set("names", Value::Dictionary{{"desktop-1", std::to_string(value)}});
    waitFor([this] { return defaults_.waitUntilWritten(std::chrono::milliseconds(0)); });
  }
  defaults_.set("own", Value());
  ASSERT_TRUE(defaults_.waitUntilWritten(std::chrono::seconds(30)));
  EXPECT_EQ(changes_, 0);
  replaceFile(R"({"key": 1})");
  ASSERT_TRUE(comesTo(1));
}

TEST_F(SettingsWatchTest, TakesNoNoticeOfAFileThatSaysTheSameInOtherWords) {
  writeText(path_, R"({"key": 0})");
  watch();
  replaceFile("{\n  \"key\": 0\n}\n");
  static_cast<void>(waitFor([this] { return changes_ > 0; }, std::chrono::milliseconds(300)));
  EXPECT_EQ(changes_, 0);
  replaceFile(R"({"key": 1})");
  EXPECT_TRUE(comesTo(1));
}

}  // namespace
}  // namespace roomlattice::tests

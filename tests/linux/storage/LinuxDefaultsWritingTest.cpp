#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Value;
using platform::linux::FileDescriptor;
using platform::linux::LinuxDefaults;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Dictionary = Value::Dictionary;

// What no test that passes waits for.
constexpr auto generousTime = 30s;

class LinuxDefaultsWritingTest : public LinuxDefaultsTest {
 protected:
  FileDescriptor heldLock() const {
    std::filesystem::create_directories(path_.parent_path());
    FileDescriptor lock(open((path_.string() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    EXPECT_EQ(flock(lock.get(), LOCK_EX), 0);
    return lock;
  }

  static Value nested(int depth, const std::string& key) {
    Value value = 1;
    for (int level = 0; level < depth; ++level) {
      value = Dictionary{{key, value}};
    }
    return value;
  }
};

TEST_F(LinuxDefaultsWritingTest, DoesNotWaitForWhoeverKeepsTheFileLocked) {
  LinuxDefaults subject = defaults();
  {
    const FileDescriptor lock = heldLock();
    for (int step = 1; step <= 100; ++step) {
      subject.set("step", step);
      ASSERT_EQ(subject.object("step"), Value(step));
    }
    EXPECT_FALSE(std::filesystem::exists(path_));
  }
  EXPECT_TRUE(subject.waitUntilWritten(generousTime));
  EXPECT_EQ(defaults().object("step"), Value(100));
  EXPECT_THAT(reports_, IsEmpty());
}

TEST_F(LinuxDefaultsWritingTest, IsOverBeforeTheObjectEnds) {
  for (int value = 1; value <= 20; ++value) {
    defaults().set("key", value);
    ASSERT_EQ(textOf(path_), "{\n  \"key\": " + std::to_string(value) + "\n}\n");
  }
}

TEST_F(LinuxDefaultsWritingTest, WaitsForWhoeverHasWrittenHalfOfTheFile) {
  writeText(path_, R"({"a": )");
  LinuxDefaults subject(
      path_, [this](const std::string& line) { reports_.push_back(line); }, generousTime);
  subject.set("b", 2);
  EXPECT_FALSE(subject.waitUntilWritten(1ms));
  writeText(path_, R"({"a": 1})");
  EXPECT_TRUE(subject.waitUntilWritten(generousTime));
  EXPECT_EQ(textOf(path_), "{\n  \"a\": 1,\n  \"b\": 2\n}\n");
  EXPECT_THAT(names(), ElementsAre("settings.json", "settings.json.lock"));
  EXPECT_THAT(reports_, IsEmpty());
}

TEST_F(LinuxDefaultsWritingTest, LeavesTheNamesThatAnotherProcessGave) {
  LinuxDefaults first = defaults();
  LinuxDefaults second = defaults();
  EXPECT_FALSE(first.object("SpaceNames"));
  EXPECT_FALSE(second.object("SpaceNames"));
  setAndWait(first, "SpaceNames", Dictionary{{"a", "Mail"}});
  setAndWait(second, "SpaceNames", Dictionary{{"b", "Web"}});
  setAndWait(first, "SpaceNames", Dictionary{{"a", "Post"}, {"c", "Music"}});
  EXPECT_EQ(defaults().object("SpaceNames"), Value(Dictionary{{"a", "Post"}, {"b", "Web"}, {"c", "Music"}}));
  setAndWait(second, "SpaceNames", Dictionary{});
  EXPECT_EQ(first.object("SpaceNames"), Value(Dictionary{{"a", "Post"}, {"c", "Music"}}));
}

TEST_F(LinuxDefaultsWritingTest, KeepsOutWhatCouldNotBeReadAgain) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "kept", 1);
  setAndWait(subject, "deep", nested(300, "$"));
  setAndWait(subject, "large", std::string(16U << 20U, 'x'));
  setAndWait(subject, "kept", 2);
  EXPECT_EQ(textOf(path_), "{\n  \"kept\": 2\n}\n");
  EXPECT_EQ(subject.object("deep"), nested(300, "$"));
  EXPECT_THAT(reports_, ElementsAre(HasSubstr("deep"), HasSubstr("large")));
}

TEST_F(LinuxDefaultsWritingTest, LeavesAFileAloneThatCouldNotBeWrittenAgain) {
  // Twice as deep once it is escaped.
  std::string text = "1";
  for (int level = 0; level < 300; ++level) {
    text = R"({"$x": )" + text + "}";
  }
  text = R"({"deep": )" + text + "}";
  writeText(path_, text);
  LinuxDefaults subject = defaults();
  setAndWait(subject, "a", 1);
  setAndWait(subject, "a", 2);
  EXPECT_EQ(textOf(path_), text);
  EXPECT_EQ(subject.object("a"), Value(2));
  EXPECT_EQ(reports_.size(), 1U);
}

TEST_F(LinuxDefaultsWritingTest, ReachesALinkThatLedToAFolder) {
  std::filesystem::create_directories(path_.parent_path());
  std::filesystem::create_directories(folder_.path() / "photos" / "holidays");
  std::filesystem::create_directory_symlink(folder_.path() / "photos", path_);
  defaults().set("key", 1);
  EXPECT_EQ(defaults().object("key"), Value(1));
  EXPECT_TRUE(std::filesystem::is_directory(folder_.path() / "photos" / "holidays"));
  EXPECT_FALSE(std::filesystem::exists(folder_.path() / "photos.lock"));
  EXPECT_THAT(names(), ElementsAre("settings.json", "settings.json.damaged-1", "settings.json.lock"));
}

}  // namespace
}  // namespace roomlattice::tests

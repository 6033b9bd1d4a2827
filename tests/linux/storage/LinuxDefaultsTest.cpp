#include "platform/linux/storage/LinuxDefaults.h"

#include "tests/linux/session/Limits.h"
#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::LinuxDefaults;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Path = std::filesystem::path;

TEST_F(LinuxDefaultsTest, HasNothingBeforeTheFirstWrite) {
  EXPECT_EQ(defaults().object("key"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(path_));
  EXPECT_THAT(reports_, IsEmpty());
}

TEST_F(LinuxDefaultsTest, KeepsValuesOverARestart) {
  defaults().set("key", 160.0);
  EXPECT_EQ(defaults().object("key"), Value(160.0));
}

TEST_F(LinuxDefaultsTest, WritesAFileForPeople) {
  defaults().set("SpaceNames", Value::Dictionary{{"desktop-1", "Mail"}});
  EXPECT_EQ(textOf(path_), "{\n  \"SpaceNames\": {\n    \"desktop-1\": \"Mail\"\n  }\n}\n");
}

TEST_F(LinuxDefaultsTest, WritesAFileForItsOwnerOnly) {
  writeText(path_, "{}");
  std::filesystem::permissions(path_, std::filesystem::perms::all);
  defaults().set("key", 1);
  struct stat status {};
  ASSERT_EQ(stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(LinuxDefaultsTest, RemovesAKeySetToNull) {
  LinuxDefaults first = defaults();
  setAndWait(first, "key", 1);
  setAndWait(first, "key", Value());
  EXPECT_EQ(first.object("key"), std::nullopt);
  EXPECT_EQ(textOf(path_), "{}\n");
}

TEST_F(LinuxDefaultsTest, KeepsKeysItDoesNotKnow) {
  writeText(path_, R"({"other": [1, 2.5, null, {"a": false}]})");
  defaults().set("key", 1);
  EXPECT_EQ(defaults().object("other"), Value(Value::Array{1, 2.5, Value(), Value::Dictionary{{"a", false}}}));
}

TEST_F(LinuxDefaultsTest, SeesWhatOthersWriteWithTheNextRead) {
  LinuxDefaults subject = defaults();
  for (int value = 1; value <= 100; ++value) {
    // In place, and of the same length, as an editor may do it.
    writeText(path_, "{\"key\": " + std::to_string(value % 10) + "}");
    ASSERT_EQ(subject.object("key"), Value(value % 10));
  }
}

TEST_F(LinuxDefaultsTest, SeesThatTheFileWasRemoved) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  std::filesystem::remove(path_);
  EXPECT_EQ(subject.object("key"), std::nullopt);
}

TEST_F(LinuxDefaultsTest, MergesWithTheKeysOfAnotherProcess) {
  LinuxDefaults first = defaults();
  LinuxDefaults second = defaults();
  setAndWait(first, "a", 1);
  setAndWait(second, "b", 2);
  setAndWait(first, "c", 3);
  EXPECT_EQ(second.object("a"), Value(1));
  EXPECT_EQ(first.object("b"), Value(2));
  EXPECT_EQ(second.object("c"), Value(3));
}

TEST_F(LinuxDefaultsTest, LeavesTheFileAloneWhenNothingChanges) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat(path_.c_str(), &before), 0);
  setAndWait(subject, "key", 1);
  ASSERT_EQ(stat(path_.c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(LinuxDefaultsTest, WritesThroughALinkThatStays) {
  const Path target = folder_.path() / "elsewhere" / "real.json";
  writeText(target, R"({"a": 1})");
  std::filesystem::create_directories(path_.parent_path());
  std::filesystem::create_symlink("../../elsewhere/real.json", path_);
  defaults().set("b", 2);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(textOf(target), "{\n  \"a\": 1,\n  \"b\": 2\n}\n");
}

TEST_F(LinuxDefaultsTest, MakesTheFileThatALinkPromises) {
  std::filesystem::create_directories(path_.parent_path());
  std::filesystem::create_symlink(folder_.path() / "elsewhere" / "real.json", path_);
  defaults().set("b", 2);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(defaults().object("b"), Value(2));
}

TEST_F(LinuxDefaultsTest, LeavesOnlyTheFileAndItsLock) {
  writeText(path_.string() + ".new", "left by a killed process");
  defaults().set("key", 1);
  EXPECT_THAT(names(), ElementsAre("settings.json", "settings.json.lock"));
}

TEST_F(LinuxDefaultsTest, KeepsAValueThatHasNoFormInMemory) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "bad", "\xff");
  setAndWait(subject, "good", 1);
  EXPECT_EQ(subject.object("bad"), Value("\xff"));
  EXPECT_EQ(textOf(path_), "{\n  \"good\": 1\n}\n");
  EXPECT_THAT(reports_, ElementsAre(HasSubstr("bad")));
}

TEST_F(LinuxDefaultsTest, WorksInMemoryWithoutAPath) {
  LinuxDefaults subject(std::nullopt, [this](const std::string& line) { reports_.push_back(line); });
  setAndWait(subject, "key", 1);
  EXPECT_EQ(subject.object("key"), Value(1));
  EXPECT_THAT(reports_, SizeIs(1));
}

TEST_F(LinuxDefaultsTest, WorksInMemoryWhileTheFileCannotBeReadAndNeverReplacesIt) {
  writeText(path_, R"({"key": 1})");
  const WithoutPrivileges unprivileged(folder_.path());
  std::filesystem::permissions(path_, std::filesystem::perms::none);
  LinuxDefaults subject = defaults();
  EXPECT_EQ(subject.object("key"), std::nullopt);
  setAndWait(subject, "other", 2);
  setAndWait(subject, "other", 3);
  EXPECT_EQ(subject.object("other"), Value(3));
  EXPECT_THAT(reports_, ElementsAre(HasSubstr("cannot be read")));
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  EXPECT_EQ(textOf(path_), R"({"key": 1})");
}

TEST_F(LinuxDefaultsTest, WritesWhatWaitedOnceTheFileCanBeRead) {
  writeText(path_, R"({"key": 1})");
  const WithoutPrivileges unprivileged(folder_.path());
  std::filesystem::permissions(path_, std::filesystem::perms::none);
  LinuxDefaults subject = defaults();
  setAndWait(subject, "other", 2);
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  EXPECT_EQ(subject.object("key"), Value(1));
  setAndWait(subject, "third", 3);
  EXPECT_EQ(defaults().object("other"), Value(2));
}

TEST_F(LinuxDefaultsTest, KeepsAValueWhoseWriteFailsAndTriesAgainWithTheNext) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  {
    const FileSizeLimit full(4);
    setAndWait(subject, "first", 2);
    setAndWait(subject, "second", 3);
    EXPECT_EQ(subject.object("first"), Value(2));
    EXPECT_EQ(defaults().object("first"), std::nullopt);
    EXPECT_THAT(reports_, ElementsAre(HasSubstr("cannot be written")));
    EXPECT_THAT(names(), ElementsAre("settings.json", "settings.json.lock"));
  }
  setAndWait(subject, "third", 4);
  EXPECT_EQ(defaults().object("first"), Value(2));
  EXPECT_EQ(defaults().object("second"), Value(3));
}

TEST_F(LinuxDefaultsTest, ReportsAFullDiskAgainAfterItHadRoom) {
  LinuxDefaults subject = defaults();
  for (int round = 1; round <= 2; ++round) {
    {
      const FileSizeLimit full(1);
      setAndWait(subject, "key", round);
    }
    setAndWait(subject, "other", round);
  }
  EXPECT_THAT(reports_, SizeIs(2));
}

TEST_F(LinuxDefaultsTest, FollowsTheBaseDirectorySpecification) {
  Environment environment;
  environment.set("HOME", "/people/somebody");
  environment.set("XDG_CONFIG_HOME", "/etc/elsewhere");
  EXPECT_EQ(LinuxDefaults::standardPath(), "/etc/elsewhere/roomlattice/settings.json");
  environment.set("XDG_CONFIG_HOME", "relative");
  EXPECT_EQ(LinuxDefaults::standardPath(), "/people/somebody/.config/roomlattice/settings.json");
  environment.set("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_EQ(LinuxDefaults::standardPath(), "/people/somebody/.config/roomlattice/settings.json");
}

TEST_F(LinuxDefaultsTest, KeepsTheLastGoodValuesWhenTheFileIsDamagedMeanwhile) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  writeText(path_, "{");
  EXPECT_EQ(subject.object("key"), Value(1));
  setAndWait(subject, "other", 2);
  EXPECT_EQ(defaults().object("key"), Value(1));
  EXPECT_EQ(textOf(path_.string() + ".damaged-1"), "{");
}

TEST_F(LinuxDefaultsTest, ReplacesADamagedFileEvenByTheSameValues) {
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  writeText(path_, "{");
  setAndWait(subject, "key", 1);
  EXPECT_EQ(defaults().object("key"), Value(1));
}

}  // namespace
}  // namespace roomlattice::tests

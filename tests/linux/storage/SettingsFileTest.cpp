#include "platform/linux/storage/SettingsFile.h"

#include "tests/linux/session/Environment.h"
#include "tests/linux/session/TextFile.h"
#include "tests/linux/session/Wait.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stop_token>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::SettingsFile;
using ::testing::ElementsAre;

class SettingsFileTest : public ::testing::Test {
 protected:
  static std::vector<std::string> names(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
  }

  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.path() / "settings.json";
  SettingsFile file_{path_};
  std::string reason_;
};

TEST_F(SettingsFileTest, IsNotReplacedWhenItHasChangedMeanwhile) {
  writeText(path_, "{}");
  const auto stamp = file_.stamp();
  writeText(path_, "{\"of\": \"an editor\"}");
  EXPECT_EQ(file_.write("{}", stamp, reason_), SettingsFile::WriteResult::ChangedMeanwhile);
  EXPECT_EQ(file_.write("{}", std::nullopt, reason_), SettingsFile::WriteResult::ChangedMeanwhile);
  EXPECT_EQ(textOf(path_), "{\"of\": \"an editor\"}");
  EXPECT_EQ(file_.write("{}", file_.stamp(), reason_), SettingsFile::WriteResult::Written);
  EXPECT_THAT(names(folder_.path()), ElementsAre("settings.json"));
}

TEST_F(SettingsFileTest, IsNotMadeAnewWhenItHasGoneMeanwhile) {
  writeText(path_, "{}");
  const auto stamp = file_.stamp();
  std::filesystem::remove(path_);
  EXPECT_EQ(file_.write("{}", stamp, reason_), SettingsFile::WriteResult::ChangedMeanwhile);
  EXPECT_EQ(file_.write("{}", std::nullopt, reason_), SettingsFile::WriteResult::Written);
}

TEST_F(SettingsFileTest, KeepsWhatAnEditorSavesAtAnyMomentOfAWrite) {
  writeText(path_, "0");
  // Writes what it has read with a mark before it, as fast as it can.
  const std::jthread program([this](const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      const auto stamp = file_.stamp();
      const std::string text = textOf(path_);
      file_.write(text.starts_with("+") ? text : "+" + text, stamp, reason_);
    }
  });
  const std::filesystem::path saved = folder_.path() / "saved";
  for (int number = 1; number <= 300; ++number) {
    const std::string text = std::to_string(number);
    writeText(saved, text);
    std::filesystem::rename(saved, path_);
    ASSERT_TRUE(waitFor([&] { return textOf(path_) == "+" + text; }, std::chrono::seconds(5))) << textOf(path_);
  }
}

TEST_F(SettingsFileTest, KeepsTheOldestAndTheLastOfDamagedOnes) {
  for (int number = 1; number <= 6; ++number) {
    writeText(path_, "damage " + std::to_string(number));
    EXPECT_TRUE(file_.setAside());
  }
  EXPECT_THAT(names(folder_.path()),
              ElementsAre("settings.json.damaged-1", "settings.json.damaged-2", "settings.json.damaged-3"));
  EXPECT_EQ(textOf(path_.string() + ".damaged-1"), "damage 1");
  EXPECT_EQ(textOf(path_.string() + ".damaged-2"), "damage 2");
  EXPECT_EQ(textOf(path_.string() + ".damaged-3"), "damage 6");
}

TEST_F(SettingsFileTest, KeepsTheModeOfALinkedFile) {
  const std::filesystem::path target = folder_.path() / "elsewhere" / "real.json";
  writeText(target, "{}");
  chmod(target.c_str(), 0640);
  std::filesystem::create_symlink(target, path_);
  EXPECT_EQ(file_.write("{\"a\": 1}", file_.stamp(), reason_), SettingsFile::WriteResult::Written);
  struct stat status {};
  ASSERT_EQ(stat(target.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
}

TEST_F(SettingsFileTest, KeepsTheOwnerOfALinkedFileWhereItMay) {
  constexpr uid_t somebody = 12345;
  const std::filesystem::path target = folder_.path() / "elsewhere" / "real.json";
  writeText(target, "{}");
  if (chown(target.c_str(), somebody, somebody) != 0) {
    GTEST_SKIP() << "only the superuser can give files away";
  }
  std::filesystem::create_symlink(target, path_);
  EXPECT_EQ(file_.write("{\"a\": 1}", file_.stamp(), reason_), SettingsFile::WriteResult::Written);
  struct stat status {};
  ASSERT_EQ(stat(target.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, somebody);
}

struct Other {
  const char* name;
  void (*make)(const std::filesystem::path& path);
  /// What is in its folder afterwards. An ordinary file is locked until it is known to be no settings.
  std::vector<std::string> left = {"photos"};
};

class SettingsFileLinkTest : public SettingsFileTest, public ::testing::WithParamInterface<Other> {};

TEST_P(SettingsFileLinkTest, ToAnythingElseIsSetAsideItself) {
  const std::filesystem::path other = folder_.path() / "elsewhere" / "photos";
  std::filesystem::create_directory(other.parent_path());
  GetParam().make(other);
  std::filesystem::create_symlink(other, path_);
  {
    const auto lock = file_.lock(reason_);
    EXPECT_TRUE(lock) << reason_;
    EXPECT_TRUE(std::holds_alternative<SettingsFile::Damaged>(file_.read()));
    EXPECT_EQ(file_.setAside(), path_.string() + ".damaged-1");
    EXPECT_EQ(file_.write("{}", std::nullopt, reason_), SettingsFile::WriteResult::Written);
  }
  EXPECT_THAT(names(other.parent_path()), ::testing::ElementsAreArray(GetParam().left));
  EXPECT_TRUE(std::filesystem::is_symlink(path_.string() + ".damaged-1"));
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(path_)));
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, SettingsFileLinkTest,
    ::testing::Values(
        Other{"Picture", [](const auto& path) { writeText(path, "\xff\xd8\xff"); }, {"photos", "photos.lock"}},
        Other{"Folder", [](const auto& path) { std::filesystem::create_directory(path); }},
        // As devices are, but of no use to anybody else if it is renamed.
        Other{"Fifo", [](const auto& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace roomlattice::tests

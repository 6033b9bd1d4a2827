#include "tests/linux/session/Limits.h"
#include "tests/linux/storage/LinuxDefaultsFixture.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::LinuxDefaults;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Path = std::filesystem::path;

// What may stand in the place of the file.
struct Damage {
  const char* name;
  void (*make)(const Path& path);
};

class DamagedSettingsTest : public LinuxDefaultsTest, public ::testing::WithParamInterface<Damage> {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(path_.parent_path());
    GetParam().make(path_);
  }
};

TEST_P(DamagedSettingsTest, ReadAsEmpty) {
  EXPECT_EQ(defaults().object("key"), std::nullopt);
}

TEST_P(DamagedSettingsTest, AreSetAsideBeforeAWriteAndReportedOnce) {
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(lstat(path_.c_str(), &before), 0);
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  setAndWait(subject, "key", 2);
  EXPECT_EQ(defaults().object("key"), Value(2));
  ASSERT_EQ(lstat((path_.string() + ".damaged-1").c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
  EXPECT_EQ(before.st_size, after.st_size);
  EXPECT_THAT(reports_, ElementsAre(StartsWith("[Roomlattice] settings file " + path_.string() + " was damaged")));
}

TEST_P(DamagedSettingsTest, AreNeverPutOntoAnotherFile) {
  writeText(path_.string() + ".damaged-1", "of an earlier accident");
  defaults().set("key", 1);
  EXPECT_EQ(textOf(path_.string() + ".damaged-1"), "of an earlier accident");
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(path_.string() + ".damaged-2")));
}

TEST_P(DamagedSettingsTest, StayAsTheyAreWhereTheyCannotBeRenamed) {
  const WithoutPrivileges unprivileged(folder_.path());
  std::filesystem::create_directories(path_.parent_path());
  writeText(path_.string() + ".lock", "");
  std::filesystem::permissions(path_.parent_path(),
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  LinuxDefaults subject = defaults();
  setAndWait(subject, "key", 1);
  setAndWait(subject, "key", 2);
  EXPECT_EQ(subject.object("key"), Value(2));
  EXPECT_THAT(reports_, ElementsAre(HasSubstr("cannot be written")));
  std::filesystem::permissions(path_.parent_path(), std::filesystem::perms::owner_all);
  EXPECT_THAT(names(), ElementsAre("settings.json", "settings.json.lock"));
}

constexpr auto text = [](const Path& path, const std::string& contents) { writeText(path, contents); };

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, DamagedSettingsTest,
    ::testing::Values(Damage{"Empty", [](const Path& path) { text(path, ""); }},
                      Damage{"Blank", [](const Path& path) { text(path, " \n"); }},
                      Damage{"CutShort", [](const Path& path) { text(path, R"({"key": 1)"); }},
                      Damage{"Array", [](const Path& path) { text(path, "[]"); }},
                      Damage{"Null", [](const Path& path) { text(path, "null"); }},
                      Damage{"TwoDocuments", [](const Path& path) { text(path, "{}{}"); }},
                      Damage{"Binary", [](const Path& path) { text(path, std::string(4096, '\0')); }},
                      Damage{"NotUtf8", [](const Path& path) { text(path, "{\"key\": \"\xff\"}"); }},
                      Damage{"HugeNumber", [](const Path& path) { text(path, "{\"key\": 1e999}"); }},
                      Damage{"VeryDeep", [](const Path& path) { text(path, "{\"key\": " + std::string(100000, '[')); }},
                      Damage{"DeepButWhole",
                             [](const Path& path) {
                               text(path, "{\"key\": " + std::string(50000, '[') + std::string(50000, ']') + "}");
                             }},
                      Damage{"VeryLarge",
                             [](const Path& path) {
                               text(path, "{}");
                               std::filesystem::resize_file(path, std::uintmax_t{1} << 40U);
                             }},
                      Damage{"Folder", [](const Path& path) { std::filesystem::create_directory(path); }},
                      Damage{"FilledFolder", [](const Path& path) { text(path / "file", "x"); }},
                      Damage{"Fifo", [](const Path& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }},
                      Damage{"Socket",
                             [](const Path& path) {
                               const int file = socket(AF_UNIX, SOCK_STREAM, 0);
                               sockaddr_un address{.sun_family = AF_UNIX};
                               path.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
                               ASSERT_EQ(bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
                               close(file);
                             }}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace roomlattice::tests

#include "platform/linux/storage/FileWatch.h"

#include "tests/linux/session/Environment.h"
#include "tests/linux/session/TextFile.h"
#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

#include <QCoreApplication>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::linux::FileWatch;

void here(const std::function<void()>& task) {
  task();
}

class FileWatchTest : public ::testing::Test {
 protected:
  FileWatchTest() { writeText(file_, "1"); }

  /// Whether the watch tells of what is done then.
  bool tellsOf(const std::function<void()>& act) {
    static_cast<void>(waitFor([this] { return std::exchange(told_, 0) == 0; }));
    act();
    return waitFor([this] { return told_ > 0; });
  }

  std::function<void()> tell() {
    return [this] { ++told_; };
  }

  TemporaryFolder folder_;
  std::filesystem::path inner_ = folder_.path() / "inner";
  std::filesystem::path file_ = inner_ / "settings.json";
  ToolkitApplication<QCoreApplication> application_;
  int told_ = 0;
};

TEST_F(FileWatchTest, TellsOfEveryWayAFileBecomesAnotherOne) {
  const FileWatch watch(file_, tell(), here);
  ASSERT_TRUE(waitFor([&] { return watch.isReliable(); }));
  EXPECT_TRUE(tellsOf([&] { writeText(file_, "2"); }));
  EXPECT_TRUE(tellsOf([&] { std::filesystem::permissions(file_, std::filesystem::perms::owner_read); }));
  writeText(inner_ / "new", "3");
  EXPECT_TRUE(tellsOf([&] { std::filesystem::rename(inner_ / "new", file_); }));
  EXPECT_TRUE(tellsOf([&] { std::filesystem::remove(file_); }));
  EXPECT_TRUE(tellsOf([&] { writeText(file_, "4"); }));
}

TEST_F(FileWatchTest, SaysNothingOfOtherFilesAndOfReading) {
  const FileWatch watch(file_, tell(), here);
  ASSERT_TRUE(waitFor([&] { return std::exchange(told_, 0) > 0; }));
  writeText(inner_ / "other", "1");
  EXPECT_EQ(textOf(file_), "1");
  int seen = 0;
  // Events come in order: what is told after this is what is left of those before, and this one.
  const FileWatch witness(
      inner_ / "last", [&seen] { ++seen; }, here);
  writeText(inner_ / "last", "1");
  ASSERT_TRUE(waitFor([&] { return seen > 1; }));
  EXPECT_EQ(told_, 0);
}

TEST_F(FileWatchTest, FollowsFoldersThatGoAndComeAgain) {
  const FileWatch watch(file_, tell(), here);
  EXPECT_TRUE(tellsOf([&] { std::filesystem::rename(inner_, folder_.path() / "elsewhere"); }));
  EXPECT_TRUE(tellsOf([&] { std::filesystem::create_directory(inner_); }));
  EXPECT_TRUE(tellsOf([&] { writeText(file_, "2"); }));
  EXPECT_TRUE(tellsOf([&] { writeText(file_, "3"); }));
}

TEST_F(FileWatchTest, WaitsForFoldersThatAreNotThereYet) {
  const std::filesystem::path later = folder_.path() / "a" / "b" / "settings.json";
  const FileWatch watch(later, tell(), here);
  ASSERT_TRUE(waitFor([&] { return watch.isReliable(); }));
  EXPECT_TRUE(tellsOf([&] { std::filesystem::create_directory(folder_.path() / "a"); }));
  EXPECT_TRUE(tellsOf([&] { writeText(later, "1"); }));
}

TEST_F(FileWatchTest, FollowsALinkToItsFileAndToAnotherOne) {
  const std::filesystem::path link = folder_.path() / "link";
  const std::filesystem::path other = folder_.path() / "far" / "other";
  writeText(other, "1");
  std::filesystem::create_symlink(file_, link);
  const FileWatch watch(link, tell(), here);
  EXPECT_TRUE(tellsOf([&] { writeText(file_, "2"); }));
  EXPECT_TRUE(tellsOf([&] {
    std::filesystem::remove(link);
    std::filesystem::create_symlink(other, link);
  }));
  EXPECT_TRUE(tellsOf([&] { writeText(other, "2"); }));
}

/// Keeps what is to be done until somebody does it, as a slow disk would.
class SlowBackground {
 public:
  FileWatch::Background add() {
    return [this](std::function<void()> task) { tasks_.push_back(std::move(task)); };
  }
  bool isAsked() const { return !tasks_.empty(); }
  void work() {
    for (const auto& task : std::exchange(tasks_, {})) {
      task();
    }
  }

 private:
  std::vector<std::function<void()>> tasks_;
};

TEST_F(FileWatchTest, TellsOfAnotherFileBeforeTheDiskHasAnswered) {
  SlowBackground background;
  const FileWatch watch(file_, tell(), background.add());
  ASSERT_TRUE(tellsOf([&] { background.work(); }));
  for (const char* text : {"2", "3"}) {
    writeText(inner_ / "new", text);
    EXPECT_TRUE(tellsOf([&] { std::filesystem::rename(inner_ / "new", file_); }));
  }
  EXPECT_TRUE(background.isAsked());
}

TEST_F(FileWatchTest, TellsOnceMoreWhenTheDiskHasAnswered) {
  SlowBackground background;
  const std::filesystem::path later = folder_.path() / "a" / "settings.json";
  const FileWatch watch(later, tell(), background.add());
  ASSERT_TRUE(tellsOf([&] { background.work(); }));
  EXPECT_TRUE(tellsOf([&] { std::filesystem::create_directory(folder_.path() / "a"); }));
  EXPECT_TRUE(tellsOf([&] {
    writeText(later, "1");
    background.work();
  }));
  EXPECT_TRUE(tellsOf([&] { writeText(later, "2"); }));
}

TEST_F(FileWatchTest, MayGoBeforeTheDiskHasAnswered) {
  SlowBackground background;
  std::optional<FileWatch> watch(std::in_place, file_, tell(), background.add());
  watch.reset();
  told_ = 0;
  background.work();
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(told_, 0);
}

/// How many sets of watches this process has.
int countWatches() {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    count += std::filesystem::read_symlink(entry, error) == "anon_inode:inotify" ? 1 : 0;
  }
  return count;
}

TEST_F(FileWatchTest, LeavesItToTheBackgroundToEndWatches) {
  SlowBackground background;
  const int before = countWatches();
  {
    const FileWatch watch(file_, tell(), background.add());
    ASSERT_TRUE(tellsOf([&] { background.work(); }));
  }
  EXPECT_EQ(countWatches(), before + 1);
  background.work();
  EXPECT_EQ(countWatches(), before);
}

}  // namespace
}  // namespace roomlattice::tests

#include "platform/linux/system/LogFile.h"

#include "platform/linux/storage/FileDescriptor.h"
#include "tests/linux/session/Environment.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::linux::FileDescriptor;
using platform::linux::LogFile;

class LogFileTest : public ::testing::Test {
 protected:
  std::uintmax_t bytesInFolder() const {
    std::uintmax_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path_.parent_path())) {
      bytes += entry.file_size();
    }
    return bytes;
  }

  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.path() / "state" / "roomlattice" / "log";
};

TEST_F(LogFileTest, HoldsNothingBeforeTheFirstLine) {
  EXPECT_EQ(LogFile(path_).contents(), "");
  EXPECT_FALSE(std::filesystem::exists(path_.parent_path()));
}

TEST_F(LogFileTest, KeepsLinesInTheOrderWritten) {
  LogFile(path_).append("one\n");
  LogFile(path_).append("two\n");
  EXPECT_EQ(LogFile(path_).contents(), "one\ntwo\n");
}

TEST_F(LogFileTest, IsForTheUserAlone) {
  LogFile(path_).append("one\n");
  EXPECT_EQ(std::filesystem::status(path_).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_EQ(std::filesystem::status(path_.parent_path()).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(LogFileTest, NeverTakesMoreThanTwiceItsLimit) {
  LogFile file(path_, 100);
  for (int line = 1000; line < 1100; ++line) {
    file.append("line " + std::to_string(line) + "\n");
    EXPECT_LE(bytesInFolder(), 200U);
  }
  EXPECT_THAT(file.contents(), ::testing::EndsWith("line 1098\nline 1099\n"));
  EXPECT_THAT(file.contents(), ::testing::HasSubstr("line 1090\n"));
}

TEST_F(LogFileTest, KeepsALineThatIsLongerThanTheLimit) {
  LogFile file(path_, 10);
  file.append("short\n");
  file.append("a line of twenty ch\n");
  file.append("end\n");
  EXPECT_EQ(file.contents(), "a line of twenty ch\nend\n");
}

TEST_F(LogFileTest, LosesNoLineOfSeveralWriters) {
  constexpr int count = 200;
  const auto writeLines = [&](char writer) {
    LogFile file(path_, 1200);
    for (int line = 0; line < count; ++line) {
      file.append(std::string(1, writer) + "\n");
    }
  };
  std::thread other([&] { writeLines('b'); });
  writeLines('a');
  other.join();
  const std::string all = LogFile(path_).contents();
  EXPECT_EQ(std::count(all.begin(), all.end(), 'a'), count);
  EXPECT_EQ(std::count(all.begin(), all.end(), 'b'), count);
}

TEST_F(LogFileTest, DoesNotWaitForWhoeverKeepsItLocked) {
  LogFile file(path_);
  file.append("one\n");
  const FileDescriptor locked(open(path_.c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(flock(locked.get(), LOCK_EX), 0);
  file.append("two\n");
  EXPECT_EQ(file.contents(), "one\ntwo\n");
}

TEST_F(LogFileTest, DoesNotWaitForTheReaderOfAPipe) {
  std::filesystem::create_directories(path_.parent_path());
  ASSERT_EQ(mkfifo(path_.c_str(), S_IRUSR | S_IWUSR), 0);
  LogFile file(path_);
  file.append("one\n");
  EXPECT_EQ(file.contents(), "");
}

TEST_F(LogFileTest, ReadsOnlyTheEndOfWhatOthersHaveMadeLarge) {
  LogFile file(path_, 100);
  file.append("first\n");
  std::filesystem::resize_file(path_, std::uintmax_t{1} << 40U);
  std::ofstream(path_, std::ios::app) << "\nlast\n";
  EXPECT_EQ(file.contents(), "last\n");
}

TEST_F(LogFileTest, DoesWithoutAFolderThatCannotBeMade) {
  LogFile file("/proc/nowhere/log");
  file.append("one\n");
  EXPECT_EQ(file.contents(), "");
}

}  // namespace
}  // namespace roomlattice::tests

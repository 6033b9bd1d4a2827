#include "platform/linux/system/SystemLog.h"

#include "platform/linux/system/LogFile.h"
#include "platform/linux/system/LogLine.h"
#include "tests/linux/session/Environment.h"
#include "tests/linux/session/StandardErrorInstead.h"
#include "tests/linux/session/TextFile.h"

#include <array>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::FileDescriptor;
using platform::linux::Journal;
using platform::linux::JournalPlace;
using platform::linux::LogFile;
using platform::linux::recentLog;
using platform::linux::stampedLogLine;
using platform::linux::SystemLog;
using std::chrono::minutes;
using ::testing::EndsWith;
using ::testing::HasSubstr;

/// A socket that takes what a journal would take.
class FakeJournal {
 public:
  explicit FakeJournal(const std::filesystem::path& path) : socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }

  std::string next() {
    std::array<char, 4096> entry{};
    const ssize_t size = recv(socket_.get(), entry.data(), entry.size(), MSG_DONTWAIT);
    return size < 0 ? "" : std::string(entry.data(), static_cast<std::size_t>(size));
  }

 private:
  FileDescriptor socket_;
};

/// What is written to standard error goes to a file while this lives.
class StandardErrorInFile {
 public:
  explicit StandardErrorInFile(std::filesystem::path path)
      : path_(std::move(path)), file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)) {
    EXPECT_GE(file_.get(), 0);
  }

  std::string text() const { return textOf(path_); }

  /// As the journal names the stream that it has given a program as standard error.
  static std::string journalStream() {
    struct stat status {};
    fstat(STDERR_FILENO, &status);
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
  }

 private:
  std::filesystem::path path_;
  FileDescriptor file_;
  StandardErrorInstead instead_{file_};
};

class SystemLogTest : public ::testing::Test {
 protected:
  SystemLogTest() { environment_.set("XDG_STATE_HOME", folder_.path().string()); }

  /// In place of the system's journalctl.
  void installJournalTool(const std::string& script) {
    writeText(journal_.tool, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(journal_.tool, std::filesystem::perms::owner_all);
  }

  Environment environment_;
  TemporaryFolder folder_;
  std::filesystem::path socket_ = folder_.path() / "socket";
  JournalPlace journal_{.socket = socket_, .tool = folder_.path() / "bin" / "journalctl"};
  std::filesystem::path file_ = folder_.path() / "roomlattice" / "log";
};

TEST_F(SystemLogTest, KeepsItsFileInTheUsersStateFolder) {
  EXPECT_EQ(SystemLog::standardPath(), file_);
}

TEST_F(SystemLogTest, WritesToStandardErrorAndTheFile) {
  const StandardErrorInFile errors(folder_.path() / "errors");
  SystemLog(file_, std::nullopt).write("[Roomlattice] tour end");
  EXPECT_THAT(errors.text(), EndsWith("] [Roomlattice] tour end\n"));
  EXPECT_EQ(LogFile(file_).contents(), errors.text());
}

TEST_F(SystemLogTest, HandsTheJournalWholeEntries) {
  FakeJournal journal(socket_);
  SystemLog(std::nullopt, Journal::open(socket_)).write("two\nlines");
  EXPECT_EQ(journal.next(), std::string("SYSLOG_IDENTIFIER=Roomlattice\nPRIORITY=6\nMESSAGE\n") + '\x09' +
                                std::string(7, '\0') + "two\nlines\n");
}

TEST_F(SystemLogTest, DoesNotWriteTwiceToAJournalThatStandardErrorIs) {
  FakeJournal journal(socket_);
  const StandardErrorInFile errors(folder_.path() / "errors");
  environment_.set("JOURNAL_STREAM", StandardErrorInFile::journalStream());
  SystemLog(std::nullopt, Journal::open(socket_)).write("line");
  EXPECT_THAT(journal.next(), HasSubstr("line"));
  EXPECT_EQ(errors.text(), "");
}

TEST_F(SystemLogTest, FallsBackToStandardErrorWhenTheJournalHasGone) {
  std::optional<FakeJournal> journal(socket_);
  SystemLog log(std::nullopt, Journal::open(socket_));
  journal.reset();
  const StandardErrorInFile errors(folder_.path() / "errors");
  environment_.set("JOURNAL_STREAM", StandardErrorInFile::journalStream());
  log.write("line");
  EXPECT_THAT(errors.text(), EndsWith("line\n"));
}

TEST_F(SystemLogTest, HasNoJournalWhereNothingListens) {
  EXPECT_FALSE(Journal::open(socket_));
  EXPECT_FALSE(Journal::open(std::string(300, 'x')));
}

TEST_F(SystemLogTest, ReadsTheFileWhereThereIsNoJournal) {
  LogFile file(file_);
  const auto now = std::chrono::system_clock::now();
  file.append(stampedLogLine(now - minutes(11), "old"));
  file.append(stampedLogLine(now - minutes(9), "recent"));
  EXPECT_EQ(recentLog(minutes(10), journal_), stampedLogLine(now - minutes(9), "recent"));
}

TEST_F(SystemLogTest, AsksTheJournalWhereThereIsOne) {
  const FakeJournal journal(socket_);
  LogFile(file_).append(stampedLogLine(std::chrono::system_clock::now(), "of the file"));
  installJournalTool("echo \"$@\"");
  EXPECT_EQ(recentLog(minutes(10), journal_),
            "--quiet --no-pager --all --output=short-iso-precise --since=-10min SYSLOG_IDENTIFIER=Roomlattice _UID=" +
                std::to_string(getuid()) + "\n");
}

TEST_F(SystemLogTest, ReadsTheFileWhereTheJournalGivesNothing) {
  const FakeJournal journal(socket_);
  LogFile(file_).append(stampedLogLine(std::chrono::system_clock::now(), "of the file"));
  for (const char* script : {"exit 0", "echo no permission; exit 1", "kill -9 $$"}) {
    installJournalTool(script);
    EXPECT_THAT(recentLog(minutes(10), journal_), EndsWith("of the file\n")) << script;
  }
}

TEST_F(SystemLogTest, TakesNoToolFromTheUsersPath) {
  const FakeJournal journal(socket_);
  installJournalTool("echo of somebody else");
  environment_.set("PATH", journal_.tool.parent_path().string() + ":/usr/bin:/bin");
  EXPECT_THAT(recentLog(minutes(10), {.socket = socket_}), ::testing::Not(HasSubstr("of somebody else")));
}

}  // namespace
}  // namespace roomlattice::tests

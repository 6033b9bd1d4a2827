#include "platform/linux/system/SystemLog.h"

#include "platform/linux/storage/UserFolders.h"
#include "platform/linux/system/LogLine.h"

#include <QProcess>
#include <QStandardPaths>
#include <chrono>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

std::string linesOfJournal(std::chrono::minutes duration, const std::filesystem::path& socket) {
  const QString tool = QStandardPaths::findExecutable(QStringLiteral("journalctl"));
  if (tool.isEmpty() || !Journal::open(socket)) {
    return {};
  }
  QProcess process;
  process.start(tool,
                {QStringLiteral("--quiet"), QStringLiteral("--no-pager"), QStringLiteral("--all"),
                 QStringLiteral("--output=short-iso-precise"), QStringLiteral("--since=-%1min").arg(duration.count()),
                 QStringLiteral("SYSLOG_IDENTIFIER=Roomlattice"), QStringLiteral("_UID=%1").arg(getuid())});
  constexpr int noLimit = -1;
  const bool ended = process.waitForFinished(noLimit);
  return ended && process.exitCode() == 0 ? process.readAllStandardOutput().toStdString() : std::string();
}

}  // namespace

SystemLog::SystemLog(const std::optional<std::filesystem::path>& file, std::optional<Journal> journal)
    : journal_(std::move(journal)) {
  if (file) {
    file_.emplace(*file);
  }
}

std::optional<std::filesystem::path> SystemLog::standardPath() {
  const auto folder = stateFolder();
  return folder ? std::optional(*folder / "log") : std::nullopt;
}

void SystemLog::write(const std::string& line) {
  const std::string stamped = stampedLogLine(std::chrono::system_clock::now(), line);
  const bool isInJournal = journal_ && journal_->write(line);
  if (!isInJournal || !standardErrorIsJournal()) {
    writeAll(STDERR_FILENO, stamped);
  }
  if (file_) {
    file_->append(stamped);
  }
}

std::string recentLog(std::chrono::minutes duration, const std::filesystem::path& journal) {
  std::string lines = linesOfJournal(duration, journal);
  if (const auto path = SystemLog::standardPath(); lines.empty() && path) {
    lines = logSince(std::chrono::system_clock::now() - duration, LogFile(*path).contents());
  }
  return lines;
}

}  // namespace roomlattice::platform::linux

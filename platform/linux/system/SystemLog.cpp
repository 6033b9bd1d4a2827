#include "platform/linux/system/SystemLog.h"

#include "platform/linux/storage/UserFolders.h"
#include "platform/linux/system/ChildRunner.h"
#include "platform/linux/system/LogFile.h"
#include "platform/linux/system/LogLine.h"
#include "platform/linux/system/StandardStreams.h"

#include <chrono>
#include <unistd.h>
#include <utility>
#include <variant>

namespace roomlattice::platform::linux {
namespace {

// A search of a large journal on a slow disk takes seconds.
constexpr std::chrono::seconds searchLimit{10};

std::string linesOfJournal(std::chrono::minutes duration, const JournalPlace& journal) {
  if (!Journal::open(journal.socket)) {
    return {};
  }
  const auto result = ChildRunner().run(journal.tool.string(),
                                        {"--quiet", "--no-pager", "--all", "--output=short-iso-precise",
                                         "--since=-" + std::to_string(duration.count()) + "min",
                                         "SYSLOG_IDENTIFIER=Roomlattice", "_UID=" + std::to_string(getuid())},
                                        {.errorOutput = ChildRunner::ErrorOutput::Discarded, .limit = searchLimit});
  const auto* ended = std::get_if<ChildResult>(&result);
  return ended != nullptr && ended->succeeded ? ended->bytes : std::string();
}

}  // namespace

SystemLog::SystemLog(const std::optional<std::filesystem::path>& file, std::optional<Journal> journal)
    : journal_(std::move(journal)) {
  if (file) {
    file_ = std::make_unique<LogWriter>(
        [place = std::make_shared<LogFile>(*file)](const std::string& stamped) { place->append(stamped); });
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
    writeToStandardError(stamped);
  }
  if (file_) {
    file_->add(stamped);
  }
}

void SystemLog::waitUntilWritten(std::chrono::milliseconds limit) const {
  if (file_) {
    file_->waitUntilWritten(limit);
  }
}

std::string recentLog(std::chrono::minutes duration, const JournalPlace& journal) {
  std::string lines = linesOfJournal(duration, journal);
  if (const auto path = SystemLog::standardPath(); lines.empty() && path) {
    lines = logSince(std::chrono::system_clock::now() - duration, LogFile(*path).contents());
  }
  return lines;
}

}  // namespace roomlattice::platform::linux

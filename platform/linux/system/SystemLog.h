#pragma once

#include "platform/linux/system/Journal.h"
#include "platform/linux/system/LogWriter.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Where the program's log lines go: to standard error, stamped, to the journal where there is one, and to a file of
/// their own, which is read where there is none. Nobody waits for any of them.
class SystemLog {
 public:
  /// Standard error alone: nothing is kept.
  SystemLog() = default;
  SystemLog(const std::optional<std::filesystem::path>& file, std::optional<Journal> journal);

  /// $XDG_STATE_HOME/roomlattice/log; nothing for a user without a home.
  static std::optional<std::filesystem::path> standardPath();

  /// Writes a line, given without its end. Any thread.
  void write(const std::string& line);

  /// Waits until the file has all lines, but not beyond `limit`.
  void waitUntilWritten(std::chrono::milliseconds limit) const;

 private:
  std::unique_ptr<LogWriter> file_;
  std::optional<Journal> journal_;
};

struct JournalPlace {
  std::filesystem::path socket = Journal::usualSocket;
  /// Not looked up where the user's own environment says: what it searches is the system's.
  std::filesystem::path tool = "/usr/bin/journalctl";
};

/// What was written in the last `duration`, by this process and earlier ones: from the journal where it has anything,
/// otherwise from the file. Blocks until the journal has been searched, for ten seconds at most.
std::string recentLog(std::chrono::minutes duration, const JournalPlace& journal = {});

}  // namespace roomlattice::platform::linux

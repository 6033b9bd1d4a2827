#pragma once

#include "platform/linux/storage/FileDescriptor.h"

#include <filesystem>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// The journal of systemd, by its native protocol (systemd.io/JOURNAL_NATIVE_PROTOCOL). Entries carry the identifier
/// "Roomlattice".
class Journal {
 public:
  static constexpr const char* usualSocket = "/run/systemd/journal/socket";

  /// Nothing where no journal listens at `socket`.
  static std::optional<Journal> open(const std::filesystem::path& socket = usualSocket);

  /// Whether it took the line, which is given without its end.
  bool write(const std::string& line) const;

 private:
  explicit Journal(FileDescriptor socket);

  FileDescriptor socket_;
};

/// Whether what the process writes to standard error goes to the journal already.
bool standardErrorIsJournal();

}  // namespace roomlattice::platform::linux

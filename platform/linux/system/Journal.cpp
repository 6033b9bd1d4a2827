#include "platform/linux/system/Journal.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <cstdint>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

/// A field whose value may hold line feeds: its name, a line feed, the length as 64 bits in little endian, the value.
std::string binaryField(const std::string& name, const std::string& value) {
  std::string field = name + '\n';
  for (unsigned shift = 0; shift < 64; shift += 8) {
    field += static_cast<char>(static_cast<std::uint64_t>(value.size()) >> shift & 0xFFU);
  }
  return field + value + '\n';
}

}  // namespace

std::optional<Journal> Journal::open(const std::filesystem::path& socketPath) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string name = socketPath.string();
  FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!socket || name.size() >= sizeof address.sun_path) {
    return std::nullopt;
  }
  std::copy(name.begin(), name.end(), address.sun_path);
  if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    return std::nullopt;
  }
  return Journal(std::move(socket));
}

Journal::Journal(FileDescriptor socket) : socket_(std::move(socket)) {}

bool Journal::write(const std::string& line) const {
  const std::string entry = "SYSLOG_IDENTIFIER=Roomlattice\nPRIORITY=6\n" + binaryField("MESSAGE", line);
  return send(socket_.get(), entry.data(), entry.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(entry.size());
}

bool standardErrorIsJournal() {
  struct stat status {};
  return fstat(STDERR_FILENO, &status) == 0 &&
         environmentVariable("JOURNAL_STREAM") == std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

}  // namespace roomlattice::platform::linux

#include "platform/linux/system/LogFile.h"

#include "platform/linux/storage/FileDescriptor.h"
#include "platform/linux/storage/UserFolders.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Path = std::filesystem::path;

FileDescriptor openForAppending(const Path& path) {
  // What else than a file may stand there is not waited for.
  const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  return FileDescriptor(open(path.c_str(), flags, S_IRUSR | S_IWUSR));
}

bool hasRoom(const FileDescriptor& file, std::uintmax_t size, std::uintmax_t limit) {
  struct stat status {};
  return fstat(file.get(), &status) != 0 || status.st_size == 0 ||
         static_cast<std::uintmax_t>(status.st_size) + size <= limit;
}

/// Waits a moment for another process that has it, not for one that has stopped.
void lock(const FileDescriptor& file) {
  for (int attempt = 0; attempt < 20 && flock(file.get(), LOCK_EX | LOCK_NB) != 0; ++attempt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

/// The whole lines among the last `limit` bytes.
std::string lastLines(const Path& path, std::uintmax_t limit) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    return {};
  }
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::uintmax_t>(std::max<std::streamoff>(file.tellg(), 0));
  const bool whole = size <= limit;
  std::string text(whole ? size : limit, '\0');
  file.seekg(static_cast<std::streamoff>(size - text.size()));
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return whole ? text : text.substr(std::min(text.find('\n'), text.size() - 1) + 1);
}

}  // namespace

LogFile::LogFile(Path path, std::uintmax_t limit) : path_(std::move(path)), limit_(limit) {}

void LogFile::append(const std::string& line) {
  // Another attempt where the folder was missing, another process has moved the file away, or it was full.
  for (int attempt = 0; attempt < 4; ++attempt) {
    const FileDescriptor file = openForAppending(path_);
    if (!file) {
      makeFolder(path_.parent_path());
      continue;
    }
    lock(file);
    if (hasName(file, path_)) {
      if (hasRoom(file, line.size(), limit_)) {
        writeAll(file.get(), line);
        return;
      }
      rename(path_.c_str(), formerPath().c_str());
    }
  }
}

std::string LogFile::contents() const {
  // One line may be longer than the bound.
  const std::uintmax_t most = limit_ + 65536;
  return lastLines(formerPath(), most) + lastLines(path_, most);
}

Path LogFile::formerPath() const {
  return path_.string() + ".1";
}

}  // namespace roomlattice::platform::linux

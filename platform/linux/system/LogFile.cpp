#include "platform/linux/system/LogFile.h"

#include "platform/linux/storage/FileDescriptor.h"
#include "platform/linux/storage/UserFolders.h"

#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <iterator>
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

std::string textOf(const Path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    return {};
  }
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
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
  return textOf(formerPath()) + textOf(path_);
}

Path LogFile::formerPath() const {
  return path_.string() + ".1";
}

}  // namespace roomlattice::platform::linux

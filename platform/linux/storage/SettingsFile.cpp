#include "platform/linux/storage/SettingsFile.h"

#include "platform/linux/storage/SettingsText.h"
#include "platform/linux/storage/UserFolders.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <thread>

namespace roomlattice::platform::linux {
namespace {

using Path = std::filesystem::path;

// Settings are some kilobytes. What is larger than this was not written by this program.
constexpr off_t maximumSize = 16 << 20;

constexpr mode_t privateFile = S_IRUSR | S_IWUSR;

std::string errorText(int number) {
  return std::generic_category().message(number);
}

Path withSuffix(Path base, const std::string& suffix) {
  base += suffix;
  return base;
}

/// Nothing when reading fails; errno tells why.
std::optional<std::string> readAll(int file) {
  std::string text;
  std::array<char, 16384> buffer{};
  while (text.size() <= static_cast<std::size_t>(maximumSize)) {
    const ssize_t count = ::read(file, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      return std::nullopt;
    }
    if (count == 0) {
      break;
    }
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

std::optional<std::string> unsuitable(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) {
    return "it is not an ordinary file";
  }
  return status.st_size > maximumSize ? std::optional<std::string>("it is too large") : std::nullopt;
}

SettingsFile::ReadResult readError(int number) {
  if (number == ENOENT) {
    return SettingsFile::Absent{};
  }
  return SettingsFile::Unreadable{errorText(number)};
}

/// Without replacing anything that stands at `to`, then or at any moment.
bool renameToFreeName(const Path& from, const Path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return false;
  }
  // A file system without that. A second link does not replace anything either, though folders cannot have one.
  return link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

/// A rename lasts over a power failure once the folder is on the disk.
void syncFolder(const Path& folder) {
  const FileDescriptor file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file) {
    fsync(file.get());
  }
}

bool writeNewFile(const Path& name, const std::string& text) {
  // What a killed process left there goes first.
  unlink(name.c_str());
  const FileDescriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, privateFile));
  return file && writeAll(file.get(), text) && fsync(file.get()) == 0;
}

}  // namespace

std::optional<FileStamp> SettingsFile::stamp() const {
  struct stat status {};
  return ::stat(path_.c_str(), &status) == 0 ? std::optional(FileStamp(status)) : std::nullopt;
}

SettingsFile::ReadResult SettingsFile::read() const {
  struct stat status {};
  if (::stat(path_.c_str(), &status) != 0) {
    return readError(errno);
  }
  // Asked before opening: devices may do something when they are opened.
  if (const auto reason = unsuitable(status)) {
    return Damaged{*reason};
  }
  const FileDescriptor file(open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file || fstat(file.get(), &status) != 0) {
    return readError(errno);
  }
  if (const auto reason = unsuitable(status)) {
    return Damaged{*reason};
  }
  const std::optional<std::string> text = readAll(file.get());
  if (!text) {
    return Unreadable{errorText(errno)};
  }
  std::optional<Value::Dictionary> settings = fromSettingsText(*text);
  if (!settings) {
    return Damaged{"it is not a JSON object"};
  }
  return Contents{std::move(*settings), FileStamp(status)};
}

std::optional<std::string> SettingsFile::write(const std::string& text) const {
  const Path name = target();
  const Path temporary = withSuffix(name, ".new");
  if (!writeNewFile(temporary, text) || rename(temporary.c_str(), name.c_str()) != 0) {
    const int number = errno;
    unlink(temporary.c_str());
    return errorText(number);
  }
  syncFolder(name.parent_path());
  return std::nullopt;
}

std::optional<std::filesystem::path> SettingsFile::setAside() const {
  const Path name = target();
  for (int number = 1; number < 10000; ++number) {
    const Path aside = withSuffix(name, ".damaged-" + std::to_string(number));
    if (renameToFreeName(name, aside)) {
      syncFolder(name.parent_path());
      return aside;
    }
    if (errno != EEXIST) {
      break;
    }
  }
  return std::nullopt;
}

FileDescriptor SettingsFile::lock(std::string& reason) const {
  using namespace std::chrono_literals;
  const Path name = withSuffix(target(), ".lock");
  makeFolder(name.parent_path());
  // Others hold it for as long as a write takes. One that was stopped meanwhile must not stop this process, too.
  for (const auto end = std::chrono::steady_clock::now() + 2s; std::chrono::steady_clock::now() < end;) {
    FileDescriptor file(open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, privateFile));
    if (!file) {
      reason = errorText(errno);
      return {};
    }
    // Where somebody has removed the file meanwhile, others lock another one.
    if (flock(file.get(), LOCK_EX | LOCK_NB) == 0 && hasName(file, name)) {
      return file;
    }
    std::this_thread::sleep_for(2ms);
  }
  reason = "another process keeps it locked";
  return {};
}

std::filesystem::path SettingsFile::target() const {
  Path name = path_;
  // As many links as the system itself follows.
  for (int links = 0; links < 40; ++links) {
    std::error_code error;
    const Path next = std::filesystem::read_symlink(name, error);
    if (error) {
      break;
    }
    name = name.parent_path() / next;
  }
  return name;
}

}  // namespace roomlattice::platform::linux

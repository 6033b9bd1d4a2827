#include "platform/linux/storage/SettingsFile.h"

#include "platform/linux/storage/SettingsText.h"
#include "platform/linux/storage/UserFolders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <thread>

namespace roomlattice::platform::linux {
namespace {

using Path = std::filesystem::path;

// So many damaged files are kept.
constexpr int maximumSetAside = 3;

// Between two looks at a file that somebody may be writing.
constexpr std::chrono::milliseconds longestPause{50};

constexpr mode_t privateFile = S_IRUSR | S_IWUSR;
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

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
  while (text.size() <= maximumSettingsSize) {
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
  const bool isTooLarge = static_cast<std::uintmax_t>(status.st_size) > maximumSettingsSize;
  return isTooLarge ? std::optional<std::string>("it is too large") : std::nullopt;
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

/// The new file gets the mode of `model`, if any, and its owner where the system allows that.
bool writeNewFile(const Path& name, const std::string& text, const std::optional<struct stat>& model) {
  // What a killed process left there goes first.
  unlink(name.c_str());
  const FileDescriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, privateFile));
  if (!file) {
    return false;
  }
  if (model) {
    [[maybe_unused]] const int ignored = fchown(file.get(), model->st_uid, model->st_gid);
    fchmod(file.get(), model->st_mode & permissionBits);
  }
  return writeAll(file.get(), text) && fsync(file.get()) == 0;
}

std::optional<FileStamp> stampOf(const Path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? std::optional(FileStamp(status)) : std::nullopt;
}

/// Puts `made` in the place of `name`. A plain rename would lose what others have put there since it was looked at. So
/// the two change places, and when it was not what was expected that was there, they change back.
SettingsFile::WriteResult replace(const Path& name, const Path& made, const std::optional<FileStamp>& expected) {
  using enum SettingsFile::WriteResult;
  const auto exchange = [&](unsigned flags) {
    return renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, name.c_str(), flags) == 0;
  };
  if (!exchange(expected ? RENAME_EXCHANGE : RENAME_NOREPLACE)) {
    if (errno == EINVAL || errno == ENOSYS) {
      // A file system without that.
      return rename(made.c_str(), name.c_str()) == 0 ? Written : Failed;
    }
    const bool isOther = errno == (expected ? ENOENT : EEXIST);
    return isOther ? ChangedMeanwhile : Failed;
  }
  if (!expected) {
    return Written;
  }
  const std::optional<FileStamp> former = stampOf(made);
  if (!former || !former->equalsApartFromName(*expected)) {
    exchange(RENAME_EXCHANGE);
    return ChangedMeanwhile;
  }
  unlink(made.c_str());
  return Written;
}

/// Where links lead to, whether anything stands there or not.
Path endOfLinks(Path name) {
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

bool isLink(const Path& name) {
  struct stat status {};
  return lstat(name.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

}  // namespace

std::optional<FileStamp> SettingsFile::stamp() const {
  return stampOf(path_);
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
    return Damaged{"it is not a JSON object", FileStamp(status)};
  }
  return Contents{std::move(*settings), FileStamp(status)};
}

SettingsFile::ReadResult SettingsFile::readSettled(std::chrono::milliseconds settling) const {
  const auto end = std::chrono::steady_clock::now() + 3 * settling;
  for (;;) {
    ReadResult result = read();
    const auto* damage = std::get_if<Damaged>(&result);
    if (damage == nullptr || !damage->unfinished || damage->unfinished->age() >= settling ||
        std::chrono::steady_clock::now() >= end) {
      return result;
    }
    std::this_thread::sleep_for(std::min(settling / 10, longestPause));
  }
}

SettingsFile::WriteResult SettingsFile::write(const std::string& text, const std::optional<FileStamp>& expected,
                                              std::string& reason) const {
  const Path name = place();
  const Path temporary = withSuffix(name, ".new");
  struct stat status {};
  const bool keepsAccess = name != path_ && ::stat(name.c_str(), &status) == 0;
  WriteResult result = WriteResult::Failed;
  if (writeNewFile(temporary, text, keepsAccess ? std::optional(status) : std::nullopt)) {
    result = stamp() == expected ? replace(name, temporary, expected) : WriteResult::ChangedMeanwhile;
  }
  if (result == WriteResult::Written) {
    syncFolder(name.parent_path());
    return result;
  }
  reason = errorText(errno);
  unlink(temporary.c_str());
  return result;
}

std::optional<std::filesystem::path> SettingsFile::setAside() const {
  for (int number = 1; number <= maximumSetAside; ++number) {
    const Path aside = withSuffix(path_, ".damaged-" + std::to_string(number));
    const bool moved = renameToFreeName(path_, aside) ||
                       (number == maximumSetAside && errno == EEXIST && rename(path_.c_str(), aside.c_str()) == 0);
    if (moved) {
      syncFolder(path_.parent_path());
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
  const Path name = withSuffix(place(), ".lock");
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

/// Where it is written: itself, or the ordinary file that a link leads or promises to lead to.
std::filesystem::path SettingsFile::place() const {
  if (!isLink(path_)) {
    return path_;
  }
  struct stat status {};
  const bool leadsToOther = ::stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
  return leadsToOther ? path_ : endOfLinks(path_);
}

}  // namespace roomlattice::platform::linux

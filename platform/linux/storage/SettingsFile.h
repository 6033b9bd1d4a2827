#pragma once

#include "platform/Value.h"
#include "platform/linux/storage/FileDescriptor.h"
#include "platform/linux/storage/FileStamp.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace roomlattice::platform::linux {

/// The file that settings are kept in: reading it whatever may stand in its place, and replacing it as a whole. A
/// symbolic link to an ordinary file, or to none yet, is followed and stays, and the file keeps its mode and, where the
/// system allows it, its owner. One to anything else counts itself as what stands there: nothing is made beside what it
/// leads to, and that is never renamed. Any thread.
class SettingsFile {
 public:
  /// Something stands there that settings cannot be read from, now or ever.
  struct Damaged {
    std::string reason;
    /// Where somebody may be in the middle of writing it: the state it was in.
    std::optional<FileStamp> unfinished;
  };
  /// It cannot be told what stands there.
  struct Unreadable {
    std::string reason;
  };
  struct Absent {};
  struct Contents {
    Value::Dictionary settings;
    FileStamp stamp;
  };
  using ReadResult = std::variant<Absent, Contents, Damaged, Unreadable>;

  explicit SettingsFile(std::filesystem::path path) : path_(std::move(path)) {}

  const std::filesystem::path& path() const { return path_; }

  /// The state of the file now; nothing when there is none or it cannot be asked for.
  std::optional<FileStamp> stamp() const;

  ReadResult read() const;

  /// The same, but looks again, for as long as somebody may be writing it: where what stands there makes no sense and
  /// was changed less than `settling` ago. At most three times as long in all.
  ReadResult readSettled(std::chrono::milliseconds settling) const;

  enum class WriteResult {
    Written,
    /// It is another one than `expected`, and stays.
    ChangedMeanwhile,
    Failed,
  };

  /// Replaces the file that has the stamp `expected`, or none. Whatever happens meanwhile, the old or the new one
  /// stands there whole, and on the disk. `reason` says why it fails. Only for the holder of the lock.
  WriteResult write(const std::string& text, const std::optional<FileStamp>& expected, std::string& reason) const;

  /// Renames what stands there: of a link that itself, as what it leads to may be anybody's. At most three are kept so:
  /// the oldest ones and the last. Gives the new path, or nothing when that fails. Only for the holder of the lock.
  std::optional<std::filesystem::path> setAside() const;

  /// Makes this process the only one that changes the file, as long as the result lives and all keep to it. Empty when
  /// the file cannot be locked or another process does not let go of it for two seconds; `reason` then says why.
  FileDescriptor lock(std::string& reason) const;

 private:
  std::filesystem::path place() const;

  std::filesystem::path path_;
};

}  // namespace roomlattice::platform::linux

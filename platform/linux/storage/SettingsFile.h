#pragma once

#include "platform/Value.h"
#include "platform/linux/storage/FileDescriptor.h"
#include "platform/linux/storage/FileStamp.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace roomlattice::platform::linux {

/// The file that settings are kept in: reading it whatever may stand in its place, and replacing it as a whole. A
/// symbolic link in its place is followed and stays. No operation waits for anything but the disk.
class SettingsFile {
 public:
  /// Something stands there that settings cannot be read from, now or ever.
  struct Damaged {
    std::string reason;
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

  /// Replaces the file. Whatever happens meanwhile, the old or the new one stands there whole. Gives the reason when it
  /// fails. Only for the holder of the lock.
  std::optional<std::string> write(const std::string& text) const;

  /// Renames what stands there, never onto anything. Gives the new path, or nothing when that fails. Only for the
  /// holder of the lock.
  std::optional<std::filesystem::path> setAside() const;

  /// Makes this process the only one that changes the file, as long as the result lives and all keep to it. Empty when
  /// the file cannot be locked or another process does not let go of it for too long; `reason` then says why.
  FileDescriptor lock(std::string& reason) const;

 private:
  std::filesystem::path target() const;

  std::filesystem::path path_;
};

}  // namespace roomlattice::platform::linux

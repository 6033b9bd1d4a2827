#pragma once

#include <chrono>
#include <sys/stat.h>

namespace roomlattice::platform::linux {

/// What tells one state of a file from another without reading it.
struct FileStamp {
  explicit FileStamp(const struct stat& status);

  /// How long ago the file was changed, by the clock; negative where that was set back meanwhile.
  std::chrono::nanoseconds age() const;

  /// True while a further change of the file could go without a change of the stamp: clocks of file systems are coarse.
  bool isTooFreshToTrust() const { return age() < std::chrono::milliseconds(50); }

  bool operator==(const FileStamp& other) const;

  /// The same but for what a rename changes.
  bool equalsApartFromName(const FileStamp& other) const;

  dev_t device;
  ino_t inode;
  off_t size;
  timespec modified;
  timespec changed;
};

}  // namespace roomlattice::platform::linux

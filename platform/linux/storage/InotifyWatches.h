#pragma once

#include "platform/linux/storage/FileDescriptor.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace roomlattice::platform::linux {

/// Watches (inotify) on a file and on all folders above it, as links and folders were when this was made.
class InotifyWatches {
 public:
  /// Waits for the disk. Of the file at `path`, which may be a link, whether it exists or not.
  explicit InotifyWatches(const std::filesystem::path& path);

  /// Readable when there is news; none where the system gives none.
  const FileDescriptor& descriptor() const { return descriptor_; }

  /// Whether all changes are told, see FileWatch.
  bool isReliable() const { return isReliable_; }

  struct News {
    /// The file may be another one, or have come or gone.
    bool isChanged = false;
    /// Other files and folders may have to be watched from now on.
    bool isRebuilt = false;
  };
  /// What has happened since this was asked last. Never waits.
  News news() const;

 private:
  using Path = std::filesystem::path;

  bool watchFile(const Path& file);
  bool watchFolder(const Path& folder, std::uint32_t events, const std::string& name);

  FileDescriptor descriptor_;
  // The entry that matters in each watched folder, by the number of the watch; none where only the folder itself does.
  std::multimap<int, std::string> names_;
  bool isReliable_ = false;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/linux/storage/FileDescriptor.h"

#include <QSocketNotifier>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Tells when a file may have become another one, or come or gone, by whatever hand, so that nobody needs to look for
/// it (inotify). A link is followed. That a link among the folders above leads elsewhere goes unnoticed.
class FileWatch {
 public:
  /// `changed` is called from the event loop of the Qt application.
  FileWatch(std::filesystem::path path, std::function<void()> changed);

  /// Whether all changes are told. Only some are on a file system that other machines write to as well, and where the
  /// system grants no more watches; whoever wants to know has to look then.
  bool isReliable() const { return isReliable_; }

 private:
  using Path = std::filesystem::path;

  void establish();
  bool watchFile(const Path& file);
  bool watchFolder(const Path& folder, std::uint32_t events, const std::string& name);
  void readEvents();

  Path path_;
  std::function<void()> changed_;
  FileDescriptor descriptor_;
  std::optional<QSocketNotifier> notifier_;
  // The entry that matters in each watched folder, by the number of the watch; none where only the folder itself does.
  std::multimap<int, std::string> names_;
  bool isReliable_ = false;
};

}  // namespace roomlattice::platform::linux

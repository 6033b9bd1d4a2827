#pragma once

#include "platform/linux/storage/InotifyWatches.h"

#include <QObject>
#include <QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace roomlattice::platform::linux {

/// Tells when a file may have become another one, or come or gone, by whatever hand, so that nobody needs to look for
/// it (inotify). A link is followed. That a link among the folders above leads elsewhere goes unnoticed.
class FileWatch {
 public:
  /// Has what it is given run, once, on any thread, also after this object has gone: what waits for the disk or for the
  /// kernel.
  using Background = std::function<void(std::function<void()>)>;

  /// `changed` is called from the event loop of the Qt application, which is where this object lives: also once when it
  /// has begun to watch, which is a while after this.
  FileWatch(std::filesystem::path path, std::function<void()> changed, Background background);
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;
  ~FileWatch();

  /// Whether all changes are told from now on. Only some are on a file system that other machines write to as well, and
  /// where the system grants no more watches; whoever wants to know has to look then.
  bool isReliable() const { return watches_ != nullptr && watches_->isReliable(); }

 private:
  /// How the background finds this object, as long as it is there.
  struct Access {
    std::mutex mutex;
    FileWatch* watch = nullptr;
  };

  void readEvents();
  void renew();
  void take(std::shared_ptr<InotifyWatches> watches);
  void drop();

  std::filesystem::path path_;
  std::function<void()> changed_;
  Background background_;
  std::shared_ptr<InotifyWatches> watches_;
  std::optional<QSocketNotifier> notifier_;
  std::shared_ptr<Access> access_ = std::make_shared<Access>();
  QObject receiver_;
};

}  // namespace roomlattice::platform::linux

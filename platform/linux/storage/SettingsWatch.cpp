#include "platform/linux/storage/SettingsWatch.h"

#include <QString>
#include <chrono>
#include <system_error>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// Editors write a file in several steps.
constexpr std::chrono::milliseconds settling{60};

QString toQt(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

bool isThere(const std::filesystem::path& path) {
  std::error_code unreadable;
  return std::filesystem::exists(path, unreadable);
}

/// The folder of the file, or as much of the way to it as there is.
std::filesystem::path nearestFolder(const std::filesystem::path& file) {
  std::filesystem::path folder = file.parent_path();
  while (folder.has_relative_path() && !isThere(folder)) {
    folder = folder.parent_path();
  }
  return folder;
}

}  // namespace

SettingsWatch::SettingsWatch(LinuxDefaults& defaults, std::filesystem::path path, std::function<void()> changed)
    : defaults_(defaults), path_(std::move(path)), changed_(std::move(changed)) {
  lookSoon_.setSingleShot(true);
  lookSoon_.setInterval(settling);
  lookSoon_.callOnTimeout([this] { look(); });
  const auto touched = [this] {
    follow();
    lookSoon_.start();
  };
  QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, touched);
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, touched);
  follow();
  defaults_.newsFromOutside();
}

/// The folder, because most writers put another file in its place, and the file itself, which may be a link to one in
/// another folder. What is watched is not a name but what bore it at the time.
void SettingsWatch::follow() {
  const QString folder = toQt(nearestFolder(path_));
  if (!watcher_.directories().contains(folder)) {
    if (!watcher_.directories().isEmpty()) {
      watcher_.removePaths(watcher_.directories());
    }
    watcher_.addPath(folder);
  }
  if (!watcher_.files().isEmpty()) {
    watcher_.removePaths(watcher_.files());
  }
  if (isThere(path_)) {
    watcher_.addPath(toQt(path_));
  }
}

void SettingsWatch::look() {
  // What came while the last of the folders was being found has not been told.
  follow();
  switch (defaults_.newsFromOutside()) {
    case SettingsMemory::News::None:
      break;
    case SettingsMemory::News::Changed:
      changed_();
      break;
    case SettingsMemory::News::NotKnownYet:
      lookSoon_.start();
      break;
  }
}

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/linux/storage/FileWatch.h"
#include "platform/linux/storage/LinuxDefaults.h"

#include <QTimer>
#include <filesystem>
#include <functional>
#include <optional>

namespace roomlattice::platform::linux {

/// Notices when the settings file is changed by anybody but this program, as long as it lives. The thread that writes
/// looks at the file meanwhile, so that readers never wait for the disk: where the system tells of all changes, when it
/// does, and elsewhere after each read. Needs the Qt application.
class SettingsWatch {
 public:
  /// Of the file at `path`, whether it exists or not; `defaults` are the settings in it, and must outlive this object.
  /// `changed` is called from the event loop, when the settings have another value than this program knew.
  SettingsWatch(LinuxDefaults& defaults, std::filesystem::path path, std::function<void()> changed);

 private:
  void fileChanged();
  void look();

  LinuxDefaults& defaults_;
  std::function<void()> changed_;
  std::optional<FileWatch> watch_;
  QTimer lookSoon_;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/Defaults.h"
#include "platform/linux/storage/SettingsFile.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Settings in a file that people can read and edit, and that several processes may write. What is changed in the file
/// by any means is seen by the next read. A file that cannot be read or written is never replaced: the values last
/// known hold, and new ones are kept in memory and tried again with the next write. A damaged file is set aside under
/// another name before the next write.
class LinuxDefaults final : public Defaults {
 public:
  using Report = std::function<void(const std::string& line)>;

  /// Each trouble with the file is reported once, when it begins. Without a path everything stays in memory.
  LinuxDefaults(std::optional<std::filesystem::path> path, Report report);

  /// Where the XDG base directory rules have it; nothing for a user without a home.
  static std::optional<std::filesystem::path> standardPath();

  std::optional<Value> object(const std::string& key) const override;
  void set(const std::string& key, const Value& value) override;

 private:
  void refresh() const;
  void load() const;
  void writePending();
  std::optional<std::string> tryToWrite();
  std::optional<std::string> replaceFile(const Value::Dictionary& settings);
  std::optional<std::string> setAside();

  std::optional<SettingsFile> file_;
  Report report_;
  // What was last read, which is what holds while the file cannot be read.
  mutable Value::Dictionary settings_;
  // What is not in the file yet; a null there removes the key.
  std::map<std::string, Value> pending_;
  mutable SettingsFile::ReadResult state_ = SettingsFile::Absent{};
  // The file's stamp at that reading, and whether the same stamp means the same contents.
  mutable std::optional<FileStamp> stamp_;
  mutable bool stampCounts_ = false;
  mutable std::string readTrouble_;
  std::string writeTrouble_;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/linux/storage/SettingsChange.h"
#include "platform/linux/storage/SettingsFile.h"

#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {

/// Brings changes into a settings file, together with what other processes write there meanwhile. A damaged file is set
/// aside first, but not before it has stayed the same for a while: somebody may be in the middle of writing it.
class SettingsUpdate {
 public:
  struct Result {
    /// The changes that are not in the file, and why.
    SettingsChanges left;
    std::optional<std::string> trouble;
    /// Whether they may get there another time, as they are.
    bool mayWorkLater = false;
    /// Where a damaged file is now, and what was wrong with it.
    std::optional<std::pair<std::filesystem::path, std::string>> setAside;
    /// What stands there now; nothing when that was not looked at.
    std::optional<SettingsFile::ReadResult> file;
  };

  /// `lastKnown` stands in for a damaged file.
  SettingsUpdate(const SettingsFile& file, Value::Dictionary lastKnown, std::chrono::milliseconds settling)
      : file_(file), lastKnown_(std::move(lastKnown)), settling_(settling) {}

  /// Waits for the disk, and for other processes for as long as SettingsFile::lock does.
  Result run(SettingsChanges changes) &&;

 private:
  enum class Attempt { Over, OnceMore };

  Attempt tryOnce();
  bool readAndSetAside();
  void merge(const Value::Dictionary& settings);
  void fail(std::optional<std::string> reason);

  const SettingsFile& file_;
  Value::Dictionary lastKnown_;
  std::chrono::milliseconds settling_;
  SettingsChanges changes_;
  // What the file holds, and is to hold with its text; no text where not even the former can be written.
  Value::Dictionary before_;
  Value::Dictionary after_;
  std::optional<std::string> text_;
  std::optional<FileStamp> stamp_;
  Result result_;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/Defaults.h"
#include "platform/linux/storage/BackgroundWork.h"
#include "platform/linux/storage/SettingsMemory.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Settings in a file that people can read and edit, and that several processes may write. What is changed in the file
/// by any means is seen by the next read. A file that cannot be read or written is never replaced: the values last
/// known hold, and new ones are kept in memory and tried again later and with the next write. A damaged file is set
/// aside under another name before the next write.
///
/// Writing keeps nobody waiting: a change holds in memory at once, and a thread writes it. Changes that come while it
/// writes go together into its next write. So the file lags behind by one write at most, and what is lost when the
/// process is killed is what was set since the last write began. What waitUntilWritten has vouched for is on the disk.
class LinuxDefaults final : public Defaults {
 public:
  /// Called by any thread, but one at a time.
  using Report = SettingsMemory::Report;

  /// How long a file that makes no sense must have stayed the same to count as damaged, not as half written.
  static constexpr std::chrono::milliseconds usualSettling{1000};
  /// How long the end of the program waits for the last write.
  static constexpr std::chrono::milliseconds endLimit{2000};

  /// Each trouble with the file is reported once, when it begins. Without a path everything stays in memory.
  LinuxDefaults(std::optional<std::filesystem::path> path, Report report,
                std::chrono::milliseconds settling = usualSettling);

  /// Waits for the last write, but not beyond `endLimit`.
  ~LinuxDefaults() override;

  /// Where the XDG base directory rules have it; nothing for a user without a home.
  static std::optional<std::filesystem::path> standardPath();

  std::optional<Value> object(const std::string& key) const override;
  void set(const std::string& key, const Value& value) override;

  /// Whether the file is looked at with each read, which then waits for the disk, as it is unless this is called, or by
  /// the thread, soon after each or when somebody tells. Then what that has not seen yet is unknown to readers.
  void setLooking(SettingsMemory::Looking looking);

  /// Whether the file has been changed by anybody else since this was asked last; the first time it has not.
  SettingsMemory::News newsFromOutside() { return memory_->newsFromOutside(); }

  /// Has the thread that writes do something else that waits for the disk, once: before it next writes or looks.
  void runByWriter(std::function<void()> task);

  /// Waits until all that was set is in the file or has failed to get there, but not beyond `limit`. Gives whether it
  /// is in the file.
  bool waitUntilWritten(std::chrono::milliseconds limit) const;

  /// To be called when the process is about to end without this object ending: as its end does.
  void finishWriting();

 private:
  void lookIfWanted() const;

  struct Errands;

  // The thread may outlive this object where a write does not end.
  std::shared_ptr<SettingsMemory> memory_;
  std::shared_ptr<Errands> errands_;
  mutable BackgroundWork writer_;
};

}  // namespace roomlattice::platform::linux

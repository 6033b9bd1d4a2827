#pragma once

#include "platform/linux/storage/SettingsChange.h"
#include "platform/linux/storage/SettingsFile.h"
#include "platform/linux/storage/SettingsUpdate.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {

/// The settings as the program sees them: what the file holds, and over it what was changed and is not there yet. The
/// file is looked at with each read unless that is left to whoever writes, and not while somebody writes: the memory is
/// the truth then. Any thread.
class SettingsMemory {
 public:
  using Report = std::function<void(const std::string& line)>;

  /// `report` is called by whoever reads or writes. Without a path everything stays here.
  SettingsMemory(std::optional<std::filesystem::path> path, Report report, std::chrono::milliseconds settling);

  enum class Looking {
    /// With each read, before it answers.
    AtOnce,
    /// After each read, by the next `write`: a later one sees what there is.
    Soon,
    /// By the next `write`, and again after this was set anew: somebody else tells when the file may have
    /// become another one.
    WhenTold,
  };
  void setLooking(Looking looking);

  /// Whether a `write` is wanted even where nothing was changed.
  bool isToBeLookedAt() const { return isToBeLookedAt_; }

  std::optional<Value> object(const std::string& key);

  enum class Change { None, ToBeWritten };
  Change set(const std::string& key, const Value& value);

  enum class Write {
    Done,
    /// It may work another time.
    Failed,
  };

  /// Writes what was changed, or else looks at the file. One thread at a time.
  Write write();

  bool isWritten() const;

  enum class News {
    None,
    Changed,
    /// A write of this program's own is under way, or nobody has looked yet.
    NotKnownYet,
  };

  /// Whether the settings have become others than they were when this was asked last, but for what was set here; the
  /// first time they have not.
  News newsFromOutside();

  /// Reports nothing any more.
  void silence();

 private:
  using Lines = std::vector<std::string>;

  /// What is to be written now, if anything, and what was last read.
  struct Work {
    SettingsChanges changes;
    Value::Dictionary lastKnown;
    /// While the file has this stamp, that is what it holds.
    std::optional<FileStamp> stamp;
  };

  static constexpr std::uint64_t never = 0;
  static constexpr std::uint64_t setHere = 1;
  static constexpr std::uint64_t firstVersion = 2;

  struct Known {
    Value value;  // null where there was nothing
    /// The version in which that is the whole value. `never` before anything was read or set; `setHere` after it was
    /// set, where the file may hold more by now: others write into the same dictionary.
    std::uint64_t asOf = never;
  };

  Work beginWrite();
  SettingsUpdate::Result look(const std::optional<FileStamp>& stamp) const;
  std::optional<FileStamp> stampOf(const SettingsFile::ReadResult& state) const;
  void endWrite(SettingsUpdate::Result result, const std::optional<FileStamp>& stamp, Lines& lines);
  void refresh(Lines& lines);
  void take(SettingsFile::ReadResult state, const std::optional<FileStamp>& stamp, Lines& lines);
  void report(const Lines& lines);
  Value current(const std::string& key) const;
  bool holds(const std::string& key, const Known& known, const Value& value) const;
  void becomeFamiliar(const std::string& key, const Value& value);
  void tellTrouble(std::string& told, const std::string& trouble, Lines& lines) const;

  const std::optional<SettingsFile> file_;
  const std::chrono::milliseconds settling_;

  std::mutex reportMutex_;
  Report report_;

  mutable std::mutex mutex_;
  // What was last read, which is what holds while the file cannot be read.
  Value::Dictionary settings_;
  // What is being written, and what comes after it.
  SettingsChanges beingWritten_;
  SettingsChanges waiting_;
  bool writing_ = false;
  // What the program has last read or set.
  std::map<std::string, Known> known_;
  // Another one whenever a value may have become another.
  std::uint64_t version_ = firstVersion;
  // The settings when it was last asked for news, and what was set here since then.
  std::optional<Value::Dictionary> familiar_;
  SettingsFile::ReadResult state_ = SettingsFile::Absent{};
  // The file's stamp at the last reading, and whether the same stamp means the same contents.
  std::optional<FileStamp> stamp_;
  bool stampCounts_ = false;
  Looking looking_ = Looking::AtOnce;
  bool hasLooked_ = false;
  // Changed under the mutex, and asked after each read.
  std::atomic<bool> isToBeLookedAt_ = false;
  std::string readTrouble_;
  std::string writeTrouble_;
};

}  // namespace roomlattice::platform::linux

#include "platform/linux/storage/SettingsMemory.h"

#include <utility>
#include <variant>

namespace roomlattice::platform::linux {

SettingsMemory::SettingsMemory(std::optional<std::filesystem::path> path, Report report,
                               std::chrono::milliseconds settling)
    : file_(path ? std::optional<SettingsFile>(std::in_place, std::move(*path)) : std::nullopt),
      settling_(settling),
      report_(std::move(report)) {
  if (!file_) {
    report_("[Roomlattice] settings are not kept: the user has no home folder");
  }
}

void SettingsMemory::setLooking(Looking looking) {
  const std::scoped_lock lock(mutex_);
  looking_ = looking;
  isToBeLookedAt_ = looking != Looking::AtOnce;
}

std::optional<Value> SettingsMemory::object(const std::string& key) {
  Lines lines;
  Value value;
  {
    const std::scoped_lock lock(mutex_);
    refresh(lines);
    Known& known = known_[key];
    if (known.asOf != version_) {
      known = {current(key), version_};
    }
    value = known.value;
    isToBeLookedAt_ = isToBeLookedAt_ || looking_ == Looking::Soon;
  }
  report(lines);
  return value.isNull() ? std::nullopt : std::optional(std::move(value));
}

SettingsMemory::Change SettingsMemory::set(const std::string& key, const Value& value) {
  Lines lines;
  Change change = Change::None;
  {
    const std::scoped_lock lock(mutex_);
    refresh(lines);
    const bool stored =
        waiting_.empty() && !writing_ && !isToBeLookedAt_ && !std::holds_alternative<SettingsFile::Damaged>(state_);
    Known& known = known_[key];
    if (!stored || !holds(key, known, value)) {
      const bool wasKnown = known.asOf != never;
      follow(waiting_, {{key, SettingsChange(wasKnown ? std::optional(known.value) : std::nullopt, value)}});
      ++version_;
      change = Change::ToBeWritten;
    }
    if (known.asOf != version_) {
      // What another process has written beside it may be there as well.
      known = {value, setHere};
    }
    if (familiar_) {
      becomeFamiliar(key, value);
    }
  }
  report(lines);
  return change;
}

/// Whether that is the value now.
bool SettingsMemory::holds(const std::string& key, const Known& known, const Value& value) const {
  return known.asOf == version_ ? known.value == value : current(key) == value;
}

void SettingsMemory::becomeFamiliar(const std::string& key, const Value& value) {
  const Value* familiar = find(*familiar_, key);
  if (value.isNull()) {
    familiar_->erase(key);
  } else if (familiar == nullptr || *familiar != value) {
    (*familiar_)[key] = value;
  }
}

SettingsMemory::Write SettingsMemory::write() {
  if (!file_) {
    return Write::Done;
  }
  Work work = beginWrite();
  SettingsUpdate::Result result =
      work.changes.empty() ? look(work.stamp)
                           : SettingsUpdate(*file_, std::move(work.lastKnown), settling_).run(std::move(work.changes));
  const bool failed = result.mayWorkLater;
  // Readers wait while the mutex is held, so no file is asked for anything then.
  const std::optional<FileStamp> stamp = result.file ? stampOf(*result.file) : std::nullopt;
  Lines lines;
  endWrite(std::move(result), stamp, lines);
  report(lines);
  return failed ? Write::Failed : Write::Done;
}

SettingsMemory::Work SettingsMemory::beginWrite() {
  const std::scoped_lock lock(mutex_);
  beingWritten_ = std::exchange(waiting_, {});
  writing_ = true;
  isToBeLookedAt_ = false;
  return {beingWritten_, settings_, stampCounts_ ? stamp_ : std::nullopt};
}

SettingsUpdate::Result SettingsMemory::look(const std::optional<FileStamp>& stamp) const {
  if (stamp && file_->stamp() == stamp) {
    return {};
  }
  return {.file = file_->read()};
}

/// Of what was read, or where nothing was, of what stands there.
std::optional<FileStamp> SettingsMemory::stampOf(const SettingsFile::ReadResult& state) const {
  const auto* contents = std::get_if<SettingsFile::Contents>(&state);
  return contents != nullptr ? contents->stamp : file_->stamp();
}

void SettingsMemory::endWrite(SettingsUpdate::Result result, const std::optional<FileStamp>& stamp, Lines& lines) {
  const std::scoped_lock lock(mutex_);
  const std::string path = file_->path().string();
  SettingsChanges later = std::exchange(waiting_, std::move(result.left));
  follow(waiting_, std::move(later));
  beingWritten_.clear();
  writing_ = false;
  ++version_;
  if (result.setAside) {
    const auto& [aside, reason] = *result.setAside;
    lines.push_back("[Roomlattice] settings file " + path + " was damaged (" + reason + ") and is kept as " +
                    aside.string());
  }
  if (result.file) {
    take(std::move(*result.file), stamp, lines);
  }
  tellTrouble(writeTrouble_,
              result.trouble ? "[Roomlattice] settings cannot be written to " + path + ": " + *result.trouble : "",
              lines);
}

bool SettingsMemory::isWritten() const {
  const std::scoped_lock lock(mutex_);
  return waiting_.empty() && beingWritten_.empty();
}

SettingsMemory::News SettingsMemory::newsFromOutside() {
  Lines lines;
  News news = News::NotKnownYet;
  {
    const std::scoped_lock lock(mutex_);
    if (!writing_ && !isToBeLookedAt_) {
      refresh(lines);
      Value::Dictionary now = applied(waiting_, settings_);
      news = familiar_ && now != *familiar_ ? News::Changed : News::None;
      familiar_ = std::move(now);
    }
  }
  report(lines);
  return news;
}

void SettingsMemory::silence() {
  const std::scoped_lock lock(reportMutex_);
  report_ = nullptr;
}

void SettingsMemory::refresh(Lines& lines) {
  if (!file_ || writing_ || (looking_ != Looking::AtOnce && hasLooked_)) {
    return;
  }
  if (!stampCounts_ || file_->stamp() != stamp_) {
    SettingsFile::ReadResult state = file_->read();
    const std::optional<FileStamp> stamp = stampOf(state);
    take(std::move(state), stamp, lines);
  }
  hasLooked_ = true;
}

void SettingsMemory::take(SettingsFile::ReadResult state, const std::optional<FileStamp>& stamp, Lines& lines) {
  state_ = std::move(state);
  stamp_ = stamp;
  ++version_;
  std::string trouble;
  if (auto* contents = std::get_if<SettingsFile::Contents>(&state_)) {
    settings_ = std::move(contents->settings);
  }
  if (std::holds_alternative<SettingsFile::Absent>(state_)) {
    settings_.clear();
  }
  if (const auto* unreadable = std::get_if<SettingsFile::Unreadable>(&state_)) {
    trouble = "[Roomlattice] settings file " + file_->path().string() + " cannot be read: " + unreadable->reason;
  }
  stampCounts_ = !stamp_ || !stamp_->isTooFreshToTrust();
  tellTrouble(readTrouble_, trouble, lines);
}

void SettingsMemory::report(const Lines& lines) {
  if (lines.empty()) {
    return;
  }
  const std::scoped_lock lock(reportMutex_);
  for (const std::string& line : lines) {
    if (report_) {
      report_(line);
    }
  }
}

Value SettingsMemory::current(const std::string& key) const {
  const Value* stored = find(settings_, key);
  return applied(waiting_, key, applied(beingWritten_, key, stored == nullptr ? Value() : *stored));
}

/// Once, when it begins.
void SettingsMemory::tellTrouble(std::string& told, const std::string& trouble, Lines& lines) const {
  if (std::exchange(told, trouble) != trouble && !trouble.empty()) {
    lines.push_back(trouble);
  }
}

}  // namespace roomlattice::platform::linux

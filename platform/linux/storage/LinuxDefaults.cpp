#include "platform/linux/storage/LinuxDefaults.h"

#include "platform/linux/storage/SettingsText.h"
#include "platform/linux/storage/UserFolders.h"

#include <utility>

namespace roomlattice::platform::linux {
namespace {

bool canBeWritten(const std::string& key, const Value& value) {
  return value.isNull() || toSettingsText({{key, value}}).has_value();
}

void apply(Value::Dictionary& settings, const std::string& key, const Value& value) {
  if (value.isNull()) {
    settings.erase(key);
  } else {
    settings[key] = value;
  }
}

}  // namespace

LinuxDefaults::LinuxDefaults(std::optional<std::filesystem::path> path, Report report) : report_(std::move(report)) {
  if (path) {
    file_.emplace(std::move(*path));
  } else {
    report_("[Roomlattice] settings are not kept: the user has no home folder");
  }
}

std::optional<std::filesystem::path> LinuxDefaults::standardPath() {
  const auto folder = configurationFolder();
  return folder ? std::optional(*folder / "settings.json") : std::nullopt;
}

std::optional<Value> LinuxDefaults::object(const std::string& key) const {
  refresh();
  const Value* value = nullptr;
  if (const auto pending = pending_.find(key); pending != pending_.end()) {
    value = &pending->second;
  } else {
    value = find(settings_, key);
  }
  return value == nullptr || value->isNull() ? std::nullopt : std::optional(*value);
}

void LinuxDefaults::set(const std::string& key, const Value& value) {
  const bool unchanged = object(key).value_or(Value()) == value;
  const bool stored = pending_.empty() && !std::holds_alternative<SettingsFile::Damaged>(state_);
  if (unchanged && stored) {
    return;
  }
  pending_[key] = value;
  writePending();
}

void LinuxDefaults::refresh() const {
  if (file_ && !(stampCounts_ && file_->stamp() == stamp_)) {
    load();
  }
}

void LinuxDefaults::load() const {
  state_ = file_->read();
  std::string trouble;
  if (auto* contents = std::get_if<SettingsFile::Contents>(&state_)) {
    settings_ = std::move(contents->settings);
    stamp_ = contents->stamp;
  } else {
    stamp_ = file_->stamp();
  }
  if (std::holds_alternative<SettingsFile::Absent>(state_)) {
    settings_.clear();
  }
  if (const auto* unreadable = std::get_if<SettingsFile::Unreadable>(&state_)) {
    trouble = "[Roomlattice] settings file " + file_->path().string() + " cannot be read: " + unreadable->reason;
  }
  stampCounts_ = !stamp_ || !stamp_->isTooFreshToTrust();
  if (std::exchange(readTrouble_, trouble) != trouble && !trouble.empty()) {
    report_(trouble);
  }
}

void LinuxDefaults::writePending() {
  if (!file_) {
    return;
  }
  std::string trouble;
  if (const std::optional<std::string> reason = tryToWrite()) {
    trouble = "[Roomlattice] settings cannot be written to " + file_->path().string() + ": " + *reason;
  }
  if (std::exchange(writeTrouble_, trouble) != trouble && !trouble.empty()) {
    report_(trouble);
  }
}

std::optional<std::string> LinuxDefaults::tryToWrite() {
  std::string reason;
  const FileDescriptor lock = file_->lock(reason);
  if (!lock) {
    return reason;
  }
  // Other processes may have written other keys since.
  load();
  if (std::holds_alternative<SettingsFile::Unreadable>(state_)) {
    return std::nullopt;  // reported by the reading
  }
  if (std::optional<std::string> failure = setAside()) {
    return failure;
  }
  Value::Dictionary settings = settings_;
  for (const auto& [key, value] : pending_) {
    if (canBeWritten(key, value)) {
      apply(settings, key, value);
    } else {
      reason = "the value of " + key + " has no form in JSON";
    }
  }
  if (std::optional<std::string> failure = replaceFile(settings)) {
    return failure;
  }
  std::erase_if(pending_, [](const auto& entry) { return canBeWritten(entry.first, entry.second); });
  load();
  return reason.empty() ? std::nullopt : std::optional(reason);
}

std::optional<std::string> LinuxDefaults::replaceFile(const Value::Dictionary& settings) {
  if (std::holds_alternative<SettingsFile::Contents>(state_) && settings == settings_) {
    return std::nullopt;
  }
  const std::optional<std::string> text = toSettingsText(settings);
  return text ? file_->write(*text) : std::optional<std::string>("it has no form in JSON");
}

std::optional<std::string> LinuxDefaults::setAside() {
  const auto* damage = std::get_if<SettingsFile::Damaged>(&state_);
  if (damage == nullptr) {
    return std::nullopt;
  }
  const std::optional<std::filesystem::path> aside = file_->setAside();
  if (!aside) {
    return damage->reason + ", and it cannot be renamed";
  }
  report_("[Roomlattice] settings file " + file_->path().string() + " was damaged (" + damage->reason +
          ") and is kept as " + aside->string());
  state_ = SettingsFile::Absent{};
  return std::nullopt;
}

}  // namespace roomlattice::platform::linux

#include "platform/linux/storage/SettingsChange.h"

#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Entries = std::map<std::string, std::optional<Value>>;

Entries difference(const Value::Dictionary& before, const Value::Dictionary& after) {
  Entries entries;
  for (const auto& [key, value] : before) {
    if (!after.contains(key)) {
      entries.emplace(key, std::nullopt);
    }
  }
  for (const auto& [key, value] : after) {
    const Value* former = find(before, key);
    if (former == nullptr || *former != value) {
      entries.emplace(key, value);
    }
  }
  return entries;
}

Value settingOf(const Value::Dictionary& settings, const std::string& key) {
  const Value* value = find(settings, key);
  return value == nullptr ? Value() : *value;
}

}  // namespace

SettingsChange::SettingsChange(const std::optional<Value>& known, Value value) : whole_(std::move(value)) {
  const Value::Dictionary* after = whole_.asDictionary();
  const Value::Dictionary* before = known ? known->asDictionary() : nullptr;
  if (after != nullptr && (before != nullptr || (known && known->isNull()))) {
    entries_ = difference(before == nullptr ? Value::Dictionary() : *before, *after);
  }
}

void SettingsChange::follow(SettingsChange later) {
  whole_ = std::move(later.whole_);
  if (entries_ && later.entries_) {
    for (auto& [key, value] : *later.entries_) {
      (*entries_)[key] = std::move(value);
    }
  } else {
    entries_.reset();
  }
}

Value SettingsChange::appliedTo(const Value& current) const {
  const Value::Dictionary* dictionary = current.asDictionary();
  if (!entries_ || dictionary == nullptr) {
    return whole_;
  }
  Value::Dictionary result = *dictionary;
  for (const auto& [key, value] : *entries_) {
    if (value) {
      result[key] = *value;
    } else {
      result.erase(key);
    }
  }
  return result;
}

void follow(SettingsChanges& changes, SettingsChanges later) {
  for (auto& [key, change] : later) {
    if (const auto former = changes.find(key); former != changes.end()) {
      former->second.follow(std::move(change));
    } else {
      changes.emplace(key, std::move(change));
    }
  }
}

Value::Dictionary applied(const SettingsChanges& changes, Value::Dictionary settings) {
  for (const auto& [key, change] : changes) {
    Value value = change.appliedTo(settingOf(settings, key));
    if (value.isNull()) {
      settings.erase(key);
    } else {
      settings[key] = std::move(value);
    }
  }
  return settings;
}

Value applied(const SettingsChanges& changes, const std::string& key, Value current) {
  const auto change = changes.find(key);
  return change == changes.end() ? std::move(current) : change->second.appliedTo(current);
}

}  // namespace roomlattice::platform::linux

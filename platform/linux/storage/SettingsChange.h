#pragma once

#include "platform/Value.h"

#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// What a program has changed of one setting. Of a dictionary, such as the names of desktops, only the entries count
/// that are others than those it knew: what another process has meanwhile written beside them stays.
class SettingsChange {
 public:
  /// The program knew `known`, a null when there was nothing, and sets `value`, a null to remove the setting. What it
  /// did not know is replaced as a whole.
  SettingsChange(const std::optional<Value>& known, Value value);

  /// Adds a later change.
  void follow(SettingsChange later);

  /// What becomes of the setting, null where there is none before or after.
  Value appliedTo(const Value& current) const;

 private:
  using Entries = std::map<std::string, std::optional<Value>>;

  Value whole_;
  // What is to be set and removed in a dictionary; nothing where the setting is replaced as a whole.
  std::optional<Entries> entries_;
};

using SettingsChanges = std::map<std::string, SettingsChange>;

/// Adds changes to earlier ones.
void follow(SettingsChanges& changes, SettingsChanges later);

/// Settings after changes.
Value::Dictionary applied(const SettingsChanges& changes, Value::Dictionary settings);

/// One setting after changes, null where there is none before or after.
Value applied(const SettingsChanges& changes, const std::string& key, Value current);

}  // namespace roomlattice::platform::linux

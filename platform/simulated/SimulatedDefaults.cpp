#include "platform/simulated/SimulatedDefaults.h"

namespace roomlattice::platform::simulated {

std::optional<Value> SimulatedDefaults::object(const std::string& key) const {
  if (const auto unsaved = unsaved_.find(key); unsaved != unsaved_.end()) {
    return unsaved->second.isNull() ? std::nullopt : std::optional(unsaved->second);
  }
  const Value* const stored = find(desktop_.storedDefaults(), key);
  return stored == nullptr ? std::nullopt : std::optional(*stored);
}

void SimulatedDefaults::set(const std::string& key, const Value& value) {
  unsaved_[key] = value;
  if (desktop_.faults.defaultsUnwritable) {
    desktop_.log().write(SimulatedDesktop::processName, "The settings cannot be stored: " + key);
    return;
  }
  for (const auto& [unsavedKey, unsavedValue] : unsaved_) {
    if (unsavedValue.isNull()) {
      desktop_.storedDefaults().erase(unsavedKey);
    } else {
      desktop_.storedDefaults()[unsavedKey] = unsavedValue;
    }
  }
  unsaved_.clear();
}

}  // namespace roomlattice::platform::simulated

#include "spaces/SpaceManager.h"
#include "support/Text.h"

#include <optional>

namespace roomlattice {

void SpaceManager::loadNames() {
  if (const std::optional<platform::Value> stored = platform_.defaults().object(defaultsKey)) {
    names_ = stored->toStringDictionary().value_or(names_);
  }
}

std::string SpaceManager::displayName(const SpaceInfo& space) const {
  if (const auto name = names_.find(space.uuid); name != names_.end() && !name->second.empty()) {
    return name->second;
  }
  // Numbers start anew on each display, unlike the order of switching, which runs across all of them.
  int number = 0;
  for (const SpaceInfo& other : spaces_) {
    if (!other.isRegular() || other.displayUUID != space.displayUUID) {
      continue;
    }
    ++number;
    if (other == space) {
      return "Desktop " + std::to_string(number);
    }
  }
  return "Desktop";
}

void SpaceManager::setName(const std::string& name, const SpaceInfo& space) {
  const std::string trimmed = trimWhitespace(name);
  if (trimmed.empty()) {
    names_.erase(space.uuid);
  } else {
    names_[space.uuid] = trimmed;
  }
  platform_.defaults().set(defaultsKey, platform::Value::Dictionary(names_.begin(), names_.end()));
  post(didChange);
}

}  // namespace roomlattice

#include "spaces/SpaceManager.h"

#include "support/Installation.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace roomlattice {

SpaceManager& SpaceManager::shared() {
  return Installation::current().shared<SpaceManager>();
}

SpaceManager::SpaceManager(platform::Platform& platform) : platform_(platform) {
  loadNames();
}

const SpaceInfo* SpaceManager::activeSpace() const {
  const auto found = std::ranges::find(spaces_, activeSpaceID_, &SpaceInfo::spaceID);
  return found == spaces_.end() ? nullptr : &*found;
}

void SpaceManager::update(std::vector<SpaceInfo> spaces, platform::SpaceID activeSpaceID) {
  const bool listChanged = spaces != spaces_;
  const bool activeSpaceChanged = activeSpaceID != activeSpaceID_;
  spaces_ = std::move(spaces);
  activeSpaceID_ = activeSpaceID;
  rememberRegularSpaces();
  if (listChanged) {
    post(didChange);
  }
  if (activeSpaceChanged) {
    post(activeChanged);
  }
}

void SpaceManager::rememberRegularSpaces() {
  std::set<std::string> known;
  if (const std::optional<platform::Value> stored = platform_.defaults().object(knownUUIDsKey)) {
    if (const auto uuids = stored->toStrings()) {
      known.insert(uuids->begin(), uuids->end());
    }
  }
  for (const SpaceInfo& space : spaces_) {
    if (space.isRegular()) {
      known.insert(space.uuid);
    }
  }
  platform_.defaults().set(knownUUIDsKey, platform::Value::Array(known.begin(), known.end()));
}

void SpaceManager::post(std::string_view notification) {
  platform_.notifications().defaultCenter().post(notification);
}

}  // namespace roomlattice

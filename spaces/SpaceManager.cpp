#include "spaces/SpaceManager.h"

#include "support/Installation.h"
#include "support/Text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

constexpr const char* namesKey = "SpaceNames";
constexpr const char* knownUUIDsKey = "KnownSpaceUUIDs";

// No swipe begins before the one ahead of it has ended.
constexpr platform::Duration spacingOf(SwitchStyle style) {
  return style == SwitchStyle::Instant ? 50ms : 220ms;
}

const std::string* nameIn(const std::map<std::string, std::string>& names, const SpaceInfo& space) {
  const auto name = names.find(space.uuid);
  return name == names.end() || name->second.empty() ? nullptr : &name->second;
}

}  // namespace

SpaceManager& SpaceManager::shared() {
  return Installation::current().shared<SpaceManager>();
}

SpaceManager::SpaceManager(platform::Platform& platform)
    : platform_(platform),
      swipes_(platform.events(), platform.dispatcher()),
      tour_(swipes_, platform.dispatcher(), platform.notifications().workspaceCenter(), platform.system()) {
  loadNames();
  tour_.onStart = [this] { post(tourWillStart); };
  tour_.onEnd = [this] {
    tourHome_.reset();
    post(tourDidEnd);
  };
}

void SpaceManager::loadNames() {
  if (const std::optional<platform::Value> stored = platform_.defaults().object(namesKey)) {
    names_ = stored->toStringDictionary().value_or(std::map<std::string, std::string>());
  }
}

const SpaceInfo* SpaceManager::activeSpace() const {
  return firstSpace(activeSpaceID_);
}

const SpaceInfo* SpaceManager::homeSpace() const {
  return firstSpace(tourHome_.value_or(activeSpaceID_));
}

const SpaceInfo* SpaceManager::find(const SpaceInfo& space) const {
  const SpaceInfo* first = firstSpace(space.spaceID);
  if (first == nullptr || *first == space) {
    return first;
  }
  // Window servers give no identifier twice, but nothing holds them to that.
  const auto found = std::ranges::find(spaces(), space);
  return found == spaces().end() ? nullptr : &*found;
}

void SpaceManager::update(std::vector<SpaceInfo> spaces, platform::SpaceID activeSpaceID) {
  replace(0, table_.spaces().size(), std::move(spaces), activeSpaceID);
}

SpaceTable::Moment SpaceManager::replace(std::size_t first, std::size_t count, std::vector<SpaceInfo> by,
                                         platform::SpaceID activeSpaceID) {
  const Difference change = table_.replace(first, count, std::move(by));
  const SpaceTable::Moment changedAt = table_.listChangedAt();
  const bool activeSpaceChanged = std::exchange(activeSpaceID_, activeSpaceID) != activeSpaceID;
  rememberRegularSpaces(change.first, change.after);
  if (!change.empty()) {
    post(didChange);
  }
  if (activeSpaceChanged) {
    post(activeChanged);
  }
  return changedAt;
}

/// Those beside `count` spaces from `first` on were there before.
void SpaceManager::rememberRegularSpaces(std::size_t first, std::size_t count) {
  std::span<const SpaceInfo> added = std::span(spaces()).subspan(first, count);
  platform::Value stored = platform_.defaults().object(knownUUIDsKey).value_or(platform::Value());
  if (stored != known_ || known_.isNull()) {
    takeKnown(stored);
    added = spaces();
  } else {
    known_ = std::move(stored);
  }
  platform::Value::Array uuids;
  for (const SpaceInfo& space : added) {
    if (space.isRegular() && knownUUIDs_.insert(space.uuid).second) {
      uuids.emplace_back(space.uuid);
    }
  }
  if (!uuids.empty()) {
    uuids.insert(uuids.begin(), known_.asArray()->begin(), known_.asArray()->end());
    known_ = std::move(uuids);
  }
  platform_.defaults().set(knownUUIDsKey, known_);
}

void SpaceManager::takeKnown(const platform::Value& stored) {
  const auto uuids = stored.toStrings().value_or(std::vector<std::string>());
  knownUUIDs_ = {uuids.begin(), uuids.end()};
  // What is none, or has one in it twice, is stored anew.
  const bool isGood = stored.asArray() != nullptr && stored.asArray()->size() == knownUUIDs_.size();
  known_ = isGood ? stored : platform::Value::Array(knownUUIDs_.begin(), knownUUIDs_.end());
}

std::string SpaceManager::displayName(const SpaceInfo& space) const {
  if (const std::string* name = givenName(space)) {
    return *name;
  }
  const std::optional<int> number = defaultNumber(space);
  return number ? "Desktop " + std::to_string(*number) : "Desktop";
}

const std::string* SpaceManager::storedName(const SpaceInfo& space) const {
  return nameIn(names_, space);
}

const std::string* SpaceManager::givenName(const SpaceInfo& space) const {
  const std::string* stored = storedName(space);
  return stored != nullptr ? stored : nameIn(borrowedNames_, space);
}

std::optional<int> SpaceManager::defaultNumber(const SpaceInfo& space) const {
  if (givenName(space) != nullptr) {
    return std::nullopt;
  }
  const SpaceInfo* listed = find(space);
  const int number = listed == nullptr ? 0 : table_.rowOf(*listed).numbers.onDisplay;
  return number == 0 ? std::nullopt : std::optional(number);
}

void SpaceManager::setName(const std::string& name, const SpaceInfo& space) {
  const std::string trimmed = trimWhitespace(name);
  if (trimmed.empty()) {
    names_.erase(space.uuid);
  } else {
    names_[space.uuid] = trimmed;
  }
  borrowedNames_.erase(space.uuid);
  table_.renamed(space.uuid);
  platform_.defaults().set(namesKey, platform::Value::Dictionary(names_.begin(), names_.end()));
  post(didChange);
}

void SpaceManager::borrowNames(const std::map<std::string, std::string>& names) {
  BorrowedNameChanges changes;
  for (const auto& [uuid, name] : borrowedNames_) {
    changes.emplace(uuid, std::nullopt);
  }
  for (const auto& [uuid, name] : names) {
    changes.insert_or_assign(uuid, name);
  }
  changeBorrowedNames(changes);
}

void SpaceManager::changeBorrowedNames(const BorrowedNameChanges& changes) {
  bool differ = false;
  for (const auto& [uuid, name] : changes) {
    const auto borrowed = borrowedNames_.find(uuid);
    if (borrowed == borrowedNames_.end() ? !name : name == borrowed->second) {
      continue;
    }
    if (name) {
      borrowedNames_.insert_or_assign(uuid, *name);
    } else {
      borrowedNames_.erase(borrowed);
    }
    table_.renamed(uuid);
    differ = true;
  }
  if (differ) {
    post(didChange);
  }
}

void SpaceManager::switchToSpace(const SpaceInfo& space, SwitchStyle style) {
  const std::vector<SpaceInfo> regular = regularSpaces(spaces());
  const std::optional<std::size_t> active = positionOf(activeSpaceID_, regular);
  const std::optional<std::size_t> target = positionOf(space.spaceID, regular);
  if (!active || !target) {
    return;
  }
  const auto direction = *target > *active ? platform::Direction::Right : platform::Direction::Left;
  const std::size_t steps = std::max(*target, *active) - std::min(*target, *active);
  for (std::size_t step = 0; step < steps; ++step) {
    platform_.dispatcher().asyncAfter(spacingOf(style) * step,
                                      lifetime_.guard([this, direction, style] { swipes_.post(direction, style); }));
  }
}

void SpaceManager::performAutoTour(std::function<void()> completion) {
  const std::vector<SpaceInfo> regular = regularSpaces(spaces());
  const std::optional<std::size_t> active = positionOf(activeSpaceID_, regular);
  if (regular.size() < 2 || !active) {
    if (completion) {
      completion();
    }
    return;
  }
  if (!tourHome_) {
    tourHome_ = activeSpaceID_;
  }
  tour_.start(DesktopTour::roundTrip(regular.size(), *active), std::move(completion));
}

void SpaceManager::post(std::string_view notification) {
  platform_.notifications().defaultCenter().post(notification);
}

}  // namespace roomlattice

#include "spaces/SpaceManager.h"

#include "support/Installation.h"
#include "support/Text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <span>
#include <unordered_map>
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

const SpaceInfo* SpaceManager::firstSpace(platform::SpaceID spaceID) const {
  const auto found = std::ranges::lower_bound(places_, spaceID, {}, &std::pair<platform::SpaceID, std::size_t>::first);
  return found == places_.end() || found->first != spaceID ? nullptr : &spaces_[found->second];
}

const SpaceInfo* SpaceManager::find(const SpaceInfo& space) const {
  const SpaceInfo* first = firstSpace(space.spaceID);
  if (first == nullptr || *first == space) {
    return first;
  }
  // Window servers give no identifier twice, but nothing holds them to that.
  const auto found = std::ranges::find(spaces_, space);
  return found == spaces_.end() ? nullptr : &*found;
}

void SpaceManager::update(std::vector<SpaceInfo> spaces, platform::SpaceID activeSpaceID) {
  const auto [changedHere, changedThere] = std::ranges::mismatch(spaces, spaces_);
  const bool listChanged = changedHere != spaces.end() || changedThere != spaces_.end();
  const auto known = static_cast<std::size_t>(changedHere - spaces.begin());
  const bool activeSpaceChanged = activeSpaceID != activeSpaceID_;
  spaces_ = std::move(spaces);
  activeSpaceID_ = activeSpaceID;
  if (listChanged) {
    indexSpaces();
  }
  rememberRegularSpaces(known);
  if (listChanged) {
    post(didChange);
  }
  if (activeSpaceChanged) {
    post(activeChanged);
  }
}

void SpaceManager::indexSpaces() {
  // Numbers start anew on each display, unlike the order of switching, which runs across all of them.
  std::unordered_map<std::string_view, int> lastOf;
  const std::string* display = nullptr;
  int* last = nullptr;
  places_.clear();
  numbers_.clear();
  for (const SpaceInfo& space : spaces_) {
    if (display == nullptr || *display != space.displayUUID) {
      display = &space.displayUUID;
      last = &lastOf[*display];
    }
    places_.emplace_back(space.spaceID, numbers_.size());
    numbers_.push_back(space.isRegular() ? ++*last : 0);
  }
  std::ranges::sort(places_);
}

/// The first `known` spaces are those of the list before.
void SpaceManager::rememberRegularSpaces(std::size_t known) {
  platform::Value stored = platform_.defaults().object(knownUUIDsKey).value_or(platform::Value());
  if (stored != known_ || stored.isNull()) {
    takeKnown(std::move(stored));
    known = 0;
  }
  bool isMore = known_.isNull();
  for (const SpaceInfo& space : std::span(spaces_).subspan(known)) {
    isMore = (space.isRegular() && knownUUIDs_.insert(space.uuid).second) || isMore;
  }
  if (isMore) {
    const std::set<std::string> sorted(knownUUIDs_.begin(), knownUUIDs_.end());
    known_ = platform::Value::Array(sorted.begin(), sorted.end());
  }
  platform_.defaults().set(knownUUIDsKey, known_);
}

void SpaceManager::takeKnown(platform::Value stored) {
  knownUUIDs_.clear();
  known_ = {};
  if (const auto uuids = stored.toStrings()) {
    knownUUIDs_.insert(uuids->begin(), uuids->end());
    // With one that is in it twice, it is stored anew.
    if (knownUUIDs_.size() == uuids->size()) {
      known_ = std::move(stored);
    }
  }
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
  const int number = listed == nullptr ? 0 : numbers_[static_cast<std::size_t>(listed - spaces_.data())];
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
  platform_.defaults().set(namesKey, platform::Value::Dictionary(names_.begin(), names_.end()));
  post(didChange);
}

void SpaceManager::borrowNames(std::map<std::string, std::string> names) {
  if (names != borrowedNames_) {
    borrowedNames_ = std::move(names);
    post(didChange);
  }
}

void SpaceManager::switchToSpace(const SpaceInfo& space, SwitchStyle style) {
  const std::vector<SpaceInfo> regular = regularSpaces(spaces_);
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
  const std::vector<SpaceInfo> regular = regularSpaces(spaces_);
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

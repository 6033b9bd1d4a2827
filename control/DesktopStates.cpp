#include "control/DesktopStates.h"

#include "support/Difference.h"

#include <cstddef>
#include <functional>
#include <map>
#include <span>
#include <string_view>

namespace roomlattice {
namespace {

using platform::DesktopChange;
using platform::DesktopChangeKind;
using platform::DesktopState;

using States = std::span<const DesktopState>;
using StatesByUUID = std::map<std::string_view, std::reference_wrapper<const DesktopState>>;

StatesByUUID byUUID(States states) {
  StatesByUUID result;
  for (const DesktopState& state : states) {
    result.emplace(state.uuid, state);
  }
  return result;
}

void addChanges(std::vector<DesktopChange>& changes, const DesktopState& before, const DesktopState& after) {
  if (before.number != after.number || before.display != after.display) {
    changes.push_back({DesktopChangeKind::Moved, after});
  }
  if (before.name != after.name) {
    changes.push_back({DesktopChangeKind::Renamed, after});
  }
  if (before.color != after.color) {
    changes.push_back({DesktopChangeKind::Recolored, after});
  }
}

/// Of a desktop in the model's list.
DesktopState stateOf(const SpaceInfo& space, const SpaceManager& manager, const PreferencesStore& preferences) {
  const int number = manager.table().rowOf(space).numbers.overall;
  return {.number = space.isRegular() ? std::optional(number) : std::nullopt,
          .name = manager.displayName(space),
          .color = preferences.usedColor(space).color(),
          .isActive = space.spaceID == manager.activeSpaceID(),
          .uuid = space.uuid,
          .display = space.displayUUID};
}

}  // namespace

std::vector<DesktopState> desktopStates(const SpaceManager& manager, const PreferencesStore& preferences) {
  return desktopStates(manager.spaces(), manager, preferences);
}

std::vector<DesktopState> desktopStates(std::span<const SpaceInfo> spaces, const SpaceManager& manager,
                                        const PreferencesStore& preferences) {
  std::vector<DesktopState> states;
  states.reserve(spaces.size());
  for (const SpaceInfo& space : spaces) {
    states.push_back(stateOf(space, manager, preferences));
  }
  return states;
}

std::optional<DesktopState> activeDesktopState(const SpaceManager& manager, const PreferencesStore& preferences) {
  const SpaceInfo* active = manager.activeSpace();
  return active == nullptr ? std::nullopt : std::optional(stateOf(*active, manager, preferences));
}

std::vector<DesktopChange> changesBetween(States before, States after) {
  // Most desktops are as they were.
  const Difference difference = differenceOf(
      before.size(), after.size(), [&](std::size_t one, std::size_t other) { return before[one] == after[other]; });
  before = before.subspan(difference.first, difference.before);
  after = after.subspan(difference.first, difference.after);
  std::vector<DesktopChange> changes;
  const StatesByUUID former = byUUID(before);
  const StatesByUUID present = byUUID(after);
  for (const DesktopState& state : before) {
    if (!present.contains(state.uuid)) {
      changes.push_back({DesktopChangeKind::Removed, state});
    }
  }
  for (const DesktopState& state : after) {
    if (const auto found = former.find(state.uuid); found != former.end()) {
      addChanges(changes, found->second, state);
    } else {
      changes.push_back({DesktopChangeKind::Added, state});
    }
  }
  for (const DesktopState& state : after) {
    const auto found = former.find(state.uuid);
    if (state.isActive && (found == former.end() || !found->second.get().isActive)) {
      changes.push_back({DesktopChangeKind::Switched, state});
    }
  }
  return changes;
}

}  // namespace roomlattice

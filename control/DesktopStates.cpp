#include "control/DesktopStates.h"

#include <algorithm>
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

/// Leaves out what both begin with and what both end with: most desktops are as they were.
void trim(States& before, States& after) {
  const auto head = std::ranges::mismatch(before, after).in1 - before.begin();
  before = before.subspan(static_cast<std::size_t>(head));
  after = after.subspan(static_cast<std::size_t>(head));
  while (!before.empty() && !after.empty() && before.back() == after.back()) {
    before = before.first(before.size() - 1);
    after = after.first(after.size() - 1);
  }
}

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

/// `number` means nothing unless the space is regular.
DesktopState stateOf(const SpaceInfo& space, int number, const SpaceManager& manager, const CodableColor& color) {
  return {.number = space.isRegular() ? std::optional(number) : std::nullopt,
          .name = manager.displayName(space),
          .color = color.color(),
          .isActive = space.spaceID == manager.activeSpaceID(),
          .uuid = space.uuid,
          .display = space.displayUUID};
}

}  // namespace

std::vector<DesktopState> desktopStates(const SpaceManager& manager, const PreferencesStore& preferences) {
  const DesktopColors colors = preferences.desktopColors();
  std::vector<DesktopState> states;
  states.reserve(manager.spaces().size());
  int number = 0;
  for (const SpaceInfo& space : manager.spaces()) {
    states.push_back(stateOf(space, space.isRegular() ? ++number : 0, manager, colors.usedColor(space.uuid)));
  }
  return states;
}

std::optional<DesktopState> activeDesktopState(const SpaceManager& manager, const PreferencesStore& preferences) {
  const SpaceInfo* active = manager.activeSpace();
  if (active == nullptr) {
    return std::nullopt;
  }
  const auto before = std::span(manager.spaces().data(), active);
  const auto number = std::ranges::count_if(before, &SpaceInfo::isRegular) + 1;
  return stateOf(*active, static_cast<int>(number), manager, preferences.usedColor(*active));
}

std::vector<DesktopChange> changesBetween(States before, States after) {
  trim(before, after);
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

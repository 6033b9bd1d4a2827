#pragma once

#include "platform/ControlEndpoint.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <optional>
#include <span>
#include <vector>

namespace roomlattice {

/// All desktops as other programs are told of them, in the model's order.
std::vector<platform::DesktopState> desktopStates(const SpaceManager& manager, const PreferencesStore& preferences);

/// Some of them; `spaces` is part of the model's list.
std::vector<platform::DesktopState> desktopStates(std::span<const SpaceInfo> spaces, const SpaceManager& manager,
                                                  const PreferencesStore& preferences);

/// The one in front; nothing while none is known.
std::optional<platform::DesktopState> activeDesktopState(const SpaceManager& manager,
                                                         const PreferencesStore& preferences);

/// How desktops came from being `before` to being `after`: those that have gone, in their order, then for each that is
/// there what has changed about it, and last which one has come to the front.
std::vector<platform::DesktopChange> changesBetween(std::span<const platform::DesktopState> before,
                                                    std::span<const platform::DesktopState> after);

}  // namespace roomlattice

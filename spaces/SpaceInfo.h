#pragma once

#include "platform/WindowServer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice {

/// One desktop, as the window server lists it.
struct SpaceInfo {
  platform::SpaceID spaceID = 0;
  /// The persistent identifier: names and colours are kept under it.
  std::string uuid;
  /// The display the desktop belongs to.
  std::string displayUUID;
  /// 0 for a regular desktop; full-screen applications and the like have other types.
  std::int64_t type = 0;

  /// Only regular desktops are numbered, listed, labelled, switched to, toured and coloured by position.
  bool isRegular() const { return type == 0; }

  bool operator==(const SpaceInfo&) const = default;
};

/// The regular desktops of `spaces`, in list order.
std::vector<SpaceInfo> regularSpaces(const std::vector<SpaceInfo>& spaces);

/// The place in `spaces` of the first one with that identifier; nothing when there is none.
std::optional<std::size_t> positionOf(platform::SpaceID space, const std::vector<SpaceInfo>& spaces);

}  // namespace roomlattice

template <>
struct std::hash<roomlattice::SpaceInfo> {
  std::size_t operator()(const roomlattice::SpaceInfo& space) const noexcept;
};

#include "spaces/SpaceInfo.h"

#include <algorithm>
#include <iterator>

namespace roomlattice {

std::vector<SpaceInfo> regularSpaces(const std::vector<SpaceInfo>& spaces) {
  std::vector<SpaceInfo> regular;
  std::ranges::copy_if(spaces, std::back_inserter(regular), &SpaceInfo::isRegular);
  return regular;
}

std::optional<std::size_t> positionOf(platform::SpaceID space, const std::vector<SpaceInfo>& spaces) {
  const auto found = std::ranges::find(spaces, space, &SpaceInfo::spaceID);
  return found == spaces.end() ? std::nullopt
                               : std::optional(static_cast<std::size_t>(std::distance(spaces.begin(), found)));
}

}  // namespace roomlattice

std::size_t std::hash<roomlattice::SpaceInfo>::operator()(const roomlattice::SpaceInfo& space) const noexcept {
  std::size_t seed = 0;
  const auto combine = [&seed](std::size_t field) { seed = seed * 31 + field; };
  combine(std::hash<roomlattice::platform::SpaceID>{}(space.spaceID));
  combine(std::hash<std::string>{}(space.uuid));
  combine(std::hash<std::string>{}(space.displayUUID));
  combine(std::hash<std::int64_t>{}(space.type));
  return seed;
}

#include "preferences/DesktopColors.h"

#include <utility>

namespace roomlattice {
namespace {

/// Of the two colours the one that the mode uses, as constant as the pair.
template <class Pair>
auto& usedIn(Pair& pair, ColorMode mode) {
  return mode == ColorMode::ColorForeground ? pair.foreground : pair.background;
}

}  // namespace

CodableColor usedOf(const SpaceColorConfig& pair, ColorMode mode) {
  return usedIn(pair, mode);
}

CodableColor defaultColorAt(std::size_t position) {
  const ColorPalette* palette = findPalette(defaultPaletteName);
  if (palette == nullptr || palette->colors.empty()) {
    return {1.0, 1.0, 1.0, 1.0};
  }
  return palette->colors[position % palette->colors.size()];
}

DesktopColors::DesktopColors(const std::vector<SpaceInfo>& spaces, SpaceColors stored, ColorMode mode)
    : stored_(std::move(stored)), mode_(mode) {
  positions_.reserve(spaces.size());
  uuids_.reserve(spaces.size());
  for (const SpaceInfo& space : spaces) {
    if (space.isRegular()) {
      positions_.emplace(space.uuid, uuids_.size());
      uuids_.push_back(space.uuid);
    }
  }
}

CodableColor DesktopColors::defaultColor(const std::string& uuid) const {
  const auto found = positions_.find(uuid);
  return defaultColorAt(found == positions_.end() ? 0 : found->second);
}

SpaceColorConfig DesktopColors::config(const std::string& uuid) const {
  if (const auto found = stored_.find(uuid); found != stored_.end()) {
    return found->second;
  }
  const CodableColor color = defaultColor(uuid);
  return {color, color};
}

CodableColor DesktopColors::usedColor(const std::string& uuid) const {
  return usedOf(config(uuid), mode_);
}

void DesktopColors::setUsedColor(const std::string& uuid, const CodableColor& color) {
  SpaceColorConfig changed = config(uuid);
  usedIn(changed, mode_) = color;
  stored_[uuid] = changed;
}

void DesktopColors::apply(const ColorPalette& palette) {
  for (std::size_t index = 0; index < uuids_.size(); ++index) {
    setUsedColor(uuids_[index], palette.colors.at(index % palette.colors.size()));
  }
}

}  // namespace roomlattice

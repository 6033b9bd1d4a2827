#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <algorithm>
#include <cstddef>

namespace roomlattice {

CodableColor PreferencesStore::defaultColor(const std::string& forSpaceUUID) {
  const auto palette = std::ranges::find(palettes(), "Pastel", &ColorPalette::name);
  if (palette == palettes().end() || palette->colors.empty()) {
    return {1.0, 1.0, 1.0, 1.0};
  }
  std::size_t index = 0;
  for (const SpaceInfo& space : SpaceManager::shared().spaces()) {
    if (!space.isRegular()) {
      continue;
    }
    if (space.uuid == forSpaceUUID) {
      return palette->colors[index % palette->colors.size()];
    }
    ++index;
  }
  return palette->colors.front();
}

SpaceColorConfig PreferencesStore::colorConfig(const std::string& forSpaceUUID) const {
  const SpaceColors stored = spaceColors();
  if (const auto found = stored.find(forSpaceUUID); found != stored.end()) {
    return found->second;
  }
  const CodableColor color = defaultColor(forSpaceUUID);
  return {color, color};
}

void PreferencesStore::applyPalette(const ColorPalette& palette) {
  SpaceColors colors = spaceColors();
  std::size_t index = 0;
  for (const SpaceInfo& space : regularSpaces(SpaceManager::shared().spaces())) {
    const CodableColor& color = palette.colors.at(index++ % palette.colors.size());
    const auto stored = colors.find(space.uuid);
    SpaceColorConfig config = stored == colors.end() ? colorConfig(space.uuid) : stored->second;
    (colorMode() == ColorMode::colorForeground ? config.foreground : config.background) = color;
    colors[space.uuid] = config;
  }
  setSpaceColors(colors);
}

}  // namespace roomlattice

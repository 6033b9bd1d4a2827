#include "preferences/PageBuilder.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"
#include "support/Fatal.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

constexpr double colorsSpacing = 16.0;
constexpr std::size_t mostDesktops = 16;
constexpr platform::Font headerFont{.size = 13.0, .weight = platform::FontWeight::Semibold};

/// Places of the colour mode pop-up.
enum ColorModeIndex { TextColor = 0, BackgroundColor = 1 };

std::vector<std::string> paletteNames() {
  std::vector<std::string> names;
  for (const ColorPalette& palette : PreferencesStore::palettes()) {
    names.push_back(palette.name);
  }
  return names;
}

int initialPaletteIndex(const std::vector<std::string>& names) {
  const auto pastel = std::ranges::find(names, "Pastel");
  return pastel == names.end() ? 0 : static_cast<int>(std::distance(names.begin(), pastel));
}

/// The colour that the mode in force lets the user edit.
CodableColor editedColor(const SpaceInfo& space) {
  const PreferencesStore& store = PreferencesStore::shared();
  const SpaceColors colors = store.spaceColors();
  const auto stored = colors.find(space.uuid);
  if (stored == colors.end()) {
    return PreferencesStore::defaultColor(space.uuid);
  }
  return store.colorMode() == ColorMode::colorForeground ? stored->second.foreground : stored->second.background;
}

std::int64_t tag(const SpaceInfo& space) {
  if (space.spaceID > static_cast<platform::SpaceID>(std::numeric_limits<std::int64_t>::max())) {
    fatal("a space identifier does not fit a control's tag");
  }
  return static_cast<std::int64_t>(space.spaceID);
}

}  // namespace

platform::TabPage PreferencesWindowController::makeColorsTab() const {
  const ColorMode mode = PreferencesStore::shared().colorMode();
  PageBuilder page(platform_.userInterface(), colorsSpacing);
  page.addRow("Color Mode:",
              platform::PopUpControl{.items = {"Text Color", "Background Color"},
                                     .selectedIndex = mode == ColorMode::colorForeground ? TextColor : BackgroundColor,
                                     .action = colorModeChanged});
  std::vector<std::string> names = paletteNames();
  const int pastel = initialPaletteIndex(names);
  page.addRow("Palette:",
              platform::PopUpControl{.items = std::move(names), .selectedIndex = pastel, .action = paletteSelected});
  page.add(platform::LabelControl{.text = "Desktop Colors:", .font = headerFont});
  std::vector<SpaceInfo> desktops = regularSpaces(SpaceManager::shared().spaces());
  desktops.resize(std::min(desktops.size(), mostDesktops));
  for (const SpaceInfo& desktop : desktops) {
    page.addRow("    " + SpaceManager::shared().displayName(desktop),
                platform::ColorWellControl{
                    .color = editedColor(desktop).color(), .tag = tag(desktop), .action = spaceColorChanged});
  }
  return page.build("colors", "Colors");
}

void PreferencesWindowController::colorModeChanged(int selectedIndex) {
  switch (selectedIndex) {
    case TextColor:
      PreferencesStore::shared().setColorMode(ColorMode::colorForeground);
      break;
    case BackgroundColor:
      PreferencesStore::shared().setColorMode(ColorMode::colorBackground);
      break;
    default:
      break;
  }
}

void PreferencesWindowController::paletteSelected(int selectedIndex) {
  const std::vector<ColorPalette>& palettes = PreferencesStore::palettes();
  if (selectedIndex >= 0 && static_cast<std::size_t>(selectedIndex) < palettes.size()) {
    PreferencesStore::shared().applyPalette(palettes[static_cast<std::size_t>(selectedIndex)]);
  }
}

void PreferencesWindowController::spaceColorChanged(std::int64_t tag, const platform::Color& color) {
  const std::vector<SpaceInfo>& spaces = SpaceManager::shared().spaces();
  const auto space = std::ranges::find(spaces, static_cast<platform::SpaceID>(tag), &SpaceInfo::spaceID);
  if (space == spaces.end()) {
    return;  // The desktop has gone since the window was built.
  }
  PreferencesStore& store = PreferencesStore::shared();
  SpaceColorConfig config = store.colorConfig(space->uuid);
  const platform::Color chosen = color.inSRGB().value_or(color);
  (store.colorMode() == ColorMode::colorForeground ? config.foreground : config.background) = {
      chosen.red, chosen.green, chosen.blue, chosen.alpha};
  SpaceColors colors = store.spaceColors();
  colors[space->uuid] = config;
  store.setSpaceColors(colors);
}

}  // namespace roomlattice

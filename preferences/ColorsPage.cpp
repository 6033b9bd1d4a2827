#include "preferences/ColorsPage.h"

#include "preferences/PageBuilder.h"
#include "support/Fatal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
  std::ranges::transform(palettes(), std::back_inserter(names), &ColorPalette::name);
  return names;
}

int initialPaletteIndex(const std::vector<std::string>& names) {
  const auto initial = std::ranges::find(names, defaultPaletteName);
  return initial == names.end() ? 0 : static_cast<int>(std::distance(names.begin(), initial));
}

std::int64_t tag(const SpaceInfo& space) {
  if (space.spaceID > static_cast<platform::SpaceID>(std::numeric_limits<std::int64_t>::max())) {
    fatal("a space identifier does not fit a control's tag");
  }
  return static_cast<std::int64_t>(space.spaceID);
}

void colorModeChanged(PreferencesStore& store, int selectedIndex) {
  switch (selectedIndex) {
    case TextColor:
      store.setColorMode(ColorMode::ColorForeground);
      break;
    case BackgroundColor:
      store.setColorMode(ColorMode::ColorBackground);
      break;
    default:
      break;
  }
}

void paletteSelected(PreferencesStore& store, int selectedIndex) {
  if (selectedIndex >= 0 && static_cast<std::size_t>(selectedIndex) < palettes().size()) {
    store.applyPalette(palettes()[static_cast<std::size_t>(selectedIndex)]);
  }
}

void spaceColorChanged(PreferencesStore& store, const SpaceManager& manager, std::int64_t tag,
                       const platform::Color& color) {
  const auto position = positionOf(static_cast<platform::SpaceID>(tag), manager.spaces());
  if (!position) {
    return;  // The desktop has gone since the page was built.
  }
  const platform::Color chosen = color.inSRGB().value_or(color);
  DesktopColors colors = store.desktopColors();
  colors.setUsedColor(manager.spaces()[*position].uuid, {chosen.red, chosen.green, chosen.blue, chosen.alpha});
  store.setSpaceColors(colors.stored());
}

void addWells(PageBuilder& page, PreferencesStore& store, const SpaceManager& manager) {
  const DesktopColors colors = store.desktopColors();
  std::vector<SpaceInfo> desktops = regularSpaces(manager.spaces());
  desktops.resize(std::min(desktops.size(), mostDesktops));
  for (const SpaceInfo& desktop : desktops) {
    page.addRow(
        "    " + manager.displayName(desktop),
        platform::ColorWellControl{.color = colors.usedColor(desktop.uuid).color(),
                                   .tag = tag(desktop),
                                   .action = [&store, &manager](std::int64_t tag, const platform::Color& color) {
                                     spaceColorChanged(store, manager, tag, color);
                                   }});
  }
}

}  // namespace

platform::TabPage makeColorsPage(const platform::UserInterface& userInterface, PreferencesStore& store,
                                 const SpaceManager& manager) {
  PageBuilder page(userInterface, colorsSpacing);
  const bool foreground = store.colorMode() == ColorMode::ColorForeground;
  page.addRow("Color Mode:", platform::PopUpControl{.items = {"Text Color", "Background Color"},
                                                    .selectedIndex = foreground ? TextColor : BackgroundColor,
                                                    .action = [&store](int index) { colorModeChanged(store, index); }});
  std::vector<std::string> names = paletteNames();
  const int initial = initialPaletteIndex(names);
  page.addRow("Palette:", platform::PopUpControl{.items = std::move(names),
                                                 .selectedIndex = initial,
                                                 .action = [&store](int index) { paletteSelected(store, index); }});
  page.add(platform::LabelControl{.text = "Desktop Colors:", .font = headerFont});
  addWells(page, store, manager);
  return page.build("colors", "Colors");
}

}  // namespace roomlattice

#pragma once

#include "preferences/CodableColor.h"

#include <string>
#include <string_view>
#include <vector>

namespace roomlattice {

/// A named list of colours, dealt out to the desktops in turn.
struct ColorPalette {
  std::string name;
  std::vector<CodableColor> colors;
};

/// The palette that desktops without a colour of their own take theirs from.
inline constexpr std::string_view defaultPaletteName = "Pastel";

/// "B&W", "Vivid", "Pastel", "Earth" and "Neon", each of sixteen opaque colours.
const std::vector<ColorPalette>& palettes();

/// The first one of that name, or null.
const ColorPalette* findPalette(std::string_view name);

}  // namespace roomlattice

#include "preferences/Palettes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace roomlattice {
namespace {

constexpr CodableColor opaque(double red, double green, double blue) {
  return {red, green, blue, 1.0};
}

using Colors = std::array<CodableColor, 16>;

// Four interleaved runs from light to dark, so that neighbours differ.
constexpr Colors greys = {
    opaque(1.0, 1.0, 1.0),    opaque(0.7, 0.7, 0.7),    opaque(0.4, 0.4, 0.4),    opaque(0.15, 0.15, 0.15),
    opaque(0.85, 0.85, 0.85), opaque(0.55, 0.55, 0.55), opaque(0.3, 0.3, 0.3),    opaque(0.05, 0.05, 0.05),
    opaque(0.95, 0.95, 0.95), opaque(0.75, 0.75, 0.75), opaque(0.5, 0.5, 0.5),    opaque(0.25, 0.25, 0.25),
    opaque(0.9, 0.9, 0.9),    opaque(0.65, 0.65, 0.65), opaque(0.35, 0.35, 0.35), opaque(0.1, 0.1, 0.1),
};

constexpr Colors vivid = {
    opaque(0.9, 0.22, 0.21),  opaque(0.13, 0.59, 0.95), opaque(0.3, 0.69, 0.31), opaque(1.0, 0.6, 0.0),
    opaque(0.61, 0.15, 0.69), opaque(0.0, 0.74, 0.83),  opaque(1.0, 0.92, 0.23), opaque(0.91, 0.12, 0.39),
    opaque(0.48, 0.71, 0.0),  opaque(0.25, 0.32, 0.71), opaque(0.8, 0.36, 0.0),  opaque(0.0, 0.59, 0.53),
    opaque(0.85, 0.65, 0.13), opaque(0.55, 0.24, 0.69), opaque(0.17, 0.73, 0.6), opaque(0.83, 0.18, 0.18),
};

constexpr Colors pastel = {
    opaque(1.0, 0.71, 0.76), opaque(0.69, 0.83, 1.0), opaque(0.72, 0.96, 0.72), opaque(1.0, 0.85, 0.6),
    opaque(0.85, 0.72, 1.0), opaque(0.6, 1.0, 0.98),  opaque(1.0, 1.0, 0.7),    opaque(1.0, 0.75, 0.86),
    opaque(0.8, 1.0, 0.8),   opaque(0.76, 0.76, 1.0), opaque(1.0, 0.9, 0.7),    opaque(0.7, 0.93, 0.93),
    opaque(1.0, 0.95, 0.75), opaque(0.9, 0.78, 1.0),  opaque(0.78, 1.0, 0.9),   opaque(1.0, 0.82, 0.82),
};

constexpr Colors earth = {
    opaque(0.55, 0.35, 0.17), opaque(0.33, 0.42, 0.18), opaque(0.72, 0.53, 0.04), opaque(0.44, 0.3, 0.22),
    opaque(0.6, 0.6, 0.5),    opaque(0.76, 0.6, 0.42),  opaque(0.4, 0.26, 0.13),  opaque(0.55, 0.55, 0.35),
    opaque(0.82, 0.71, 0.55), opaque(0.5, 0.38, 0.26),  opaque(0.65, 0.5, 0.39),  opaque(0.42, 0.49, 0.31),
    opaque(0.7, 0.63, 0.5),   opaque(0.35, 0.2, 0.1),   opaque(0.58, 0.52, 0.38), opaque(0.48, 0.45, 0.3),
};

constexpr Colors neon = {
    opaque(1.0, 0.07, 0.57),  opaque(0.0, 1.0, 0.94), opaque(0.44, 1.0, 0.08), opaque(1.0, 0.84, 0.0),
    opaque(0.73, 0.33, 0.83), opaque(1.0, 0.35, 0.0), opaque(0.0, 0.81, 1.0),  opaque(0.0, 1.0, 0.5),
    opaque(1.0, 0.0, 0.0),    opaque(0.88, 1.0, 0.0), opaque(1.0, 0.41, 0.71), opaque(0.0, 1.0, 1.0),
    opaque(0.56, 0.0, 1.0),   opaque(1.0, 0.5, 0.0),  opaque(0.12, 1.0, 0.73), opaque(1.0, 0.25, 0.25),
};

ColorPalette palette(std::string name, const Colors& colors) {
  return {std::move(name), {colors.begin(), colors.end()}};
}

}  // namespace

const std::vector<ColorPalette>& palettes() {
  static const std::vector<ColorPalette> all = {palette("B&W", greys), palette("Vivid", vivid),
                                                palette("Pastel", pastel), palette("Earth", earth),
                                                palette("Neon", neon)};
  return all;
}

const ColorPalette* findPalette(std::string_view name) {
  const auto found = std::ranges::find(palettes(), name, &ColorPalette::name);
  return found == palettes().end() ? nullptr : &*found;
}

}  // namespace roomlattice

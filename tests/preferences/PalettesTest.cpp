#include "preferences/PreferencesStore.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

namespace roomlattice {
namespace {

struct Rgb {
  double red;
  double green;
  double blue;
};

// One row per position: "B&W", "Vivid", "Pastel", "Earth", "Neon".
constexpr std::array<std::array<Rgb, 5>, 16> expected{{
    {{{1.0, 1.0, 1.0}, {0.9, 0.22, 0.21}, {1.0, 0.71, 0.76}, {0.55, 0.35, 0.17}, {1.0, 0.07, 0.57}}},
    {{{0.7, 0.7, 0.7}, {0.13, 0.59, 0.95}, {0.69, 0.83, 1.0}, {0.33, 0.42, 0.18}, {0.0, 1.0, 0.94}}},
    {{{0.4, 0.4, 0.4}, {0.3, 0.69, 0.31}, {0.72, 0.96, 0.72}, {0.72, 0.53, 0.04}, {0.44, 1.0, 0.08}}},
    {{{0.15, 0.15, 0.15}, {1.0, 0.6, 0.0}, {1.0, 0.85, 0.6}, {0.44, 0.3, 0.22}, {1.0, 0.84, 0.0}}},
    {{{0.85, 0.85, 0.85}, {0.61, 0.15, 0.69}, {0.85, 0.72, 1.0}, {0.6, 0.6, 0.5}, {0.73, 0.33, 0.83}}},
    {{{0.55, 0.55, 0.55}, {0.0, 0.74, 0.83}, {0.6, 1.0, 0.98}, {0.76, 0.6, 0.42}, {1.0, 0.35, 0.0}}},
    {{{0.3, 0.3, 0.3}, {1.0, 0.92, 0.23}, {1.0, 1.0, 0.7}, {0.4, 0.26, 0.13}, {0.0, 0.81, 1.0}}},
    {{{0.05, 0.05, 0.05}, {0.91, 0.12, 0.39}, {1.0, 0.75, 0.86}, {0.55, 0.55, 0.35}, {0.0, 1.0, 0.5}}},
    {{{0.95, 0.95, 0.95}, {0.48, 0.71, 0.0}, {0.8, 1.0, 0.8}, {0.82, 0.71, 0.55}, {1.0, 0.0, 0.0}}},
    {{{0.75, 0.75, 0.75}, {0.25, 0.32, 0.71}, {0.76, 0.76, 1.0}, {0.5, 0.38, 0.26}, {0.88, 1.0, 0.0}}},
    {{{0.5, 0.5, 0.5}, {0.8, 0.36, 0.0}, {1.0, 0.9, 0.7}, {0.65, 0.5, 0.39}, {1.0, 0.41, 0.71}}},
    {{{0.25, 0.25, 0.25}, {0.0, 0.59, 0.53}, {0.7, 0.93, 0.93}, {0.42, 0.49, 0.31}, {0.0, 1.0, 1.0}}},
    {{{0.9, 0.9, 0.9}, {0.85, 0.65, 0.13}, {1.0, 0.95, 0.75}, {0.7, 0.63, 0.5}, {0.56, 0.0, 1.0}}},
    {{{0.65, 0.65, 0.65}, {0.55, 0.24, 0.69}, {0.9, 0.78, 1.0}, {0.35, 0.2, 0.1}, {1.0, 0.5, 0.0}}},
    {{{0.35, 0.35, 0.35}, {0.17, 0.73, 0.6}, {0.78, 1.0, 0.9}, {0.58, 0.52, 0.38}, {0.12, 1.0, 0.73}}},
    {{{0.1, 0.1, 0.1}, {0.83, 0.18, 0.18}, {1.0, 0.82, 0.82}, {0.48, 0.45, 0.3}, {1.0, 0.25, 0.25}}},
}};

TEST(PalettesTest, StandInTheirOrder) {
  std::vector<std::string> names;
  for (const ColorPalette& palette : PreferencesStore::palettes()) {
    names.push_back(palette.name);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"B&W", "Vivid", "Pastel", "Earth", "Neon"}));
}

TEST(PalettesTest, HoldEveryColourOpaque) {
  ASSERT_EQ(PreferencesStore::palettes().size(), 5U);
  for (std::size_t column = 0; column < 5; ++column) {
    const ColorPalette& palette = PreferencesStore::palettes()[column];
    ASSERT_EQ(palette.colors.size(), expected.size());
    for (std::size_t row = 0; row < expected.size(); ++row) {
      const Rgb& rgb = expected[row][column];
      EXPECT_EQ(palette.colors[row], (CodableColor{rgb.red, rgb.green, rgb.blue, 1.0})) << palette.name << " " << row;
    }
  }
}

}  // namespace
}  // namespace roomlattice

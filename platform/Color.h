#pragma once

#include <optional>

namespace roomlattice::platform {

/// The only thing the program asks of a colour space: whether a colour in it has sRGB components.
enum class ColorSpace {
  SRGB,
  /// Patterns and the like: the components are whatever the platform reports, and there is no conversion.
  Unconvertible,
};

/// Components are nominally 0–1.
struct Color {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
  double alpha = 1.0;
  ColorSpace space = ColorSpace::SRGB;

  /// This colour in sRGB, or nothing where it has no sRGB form.
  std::optional<Color> inSRGB() const { return space == ColorSpace::SRGB ? std::optional(*this) : std::nullopt; }

  constexpr Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha, space}; }

  bool operator==(const Color&) const = default;

  static constexpr Color black() { return {0.0, 0.0, 0.0, 1.0}; }
  static constexpr Color white() { return {1.0, 1.0, 1.0, 1.0}; }
};

}  // namespace roomlattice::platform

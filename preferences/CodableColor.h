#pragma once

#include "platform/Color.h"
#include "platform/Value.h"

#include <map>
#include <optional>
#include <string>

namespace roomlattice {

/// An sRGB colour as it is stored; components are nominally 0–1. Equality is exact.
struct CodableColor {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
  double alpha = 0.0;

  platform::Color color() const { return {red, green, blue, alpha}; }

  bool operator==(const CodableColor&) const = default;
};

/// The two colours of a desktop; the colour mode decides which of them is in use.
struct SpaceColorConfig {
  CodableColor foreground;
  CodableColor background;

  bool operator==(const SpaceColorConfig&) const = default;
};

/// Colour pairs by desktop uuid.
using SpaceColors = std::map<std::string, SpaceColorConfig>;

/// The stored form: objects with exactly the fields' names as keys.
platform::Value encode(const SpaceColors& colors);

/// Nothing when any entry lacks a key or has a component that is not a number; other keys are passed over.
std::optional<SpaceColors> decodeSpaceColors(const platform::Value& value);

}  // namespace roomlattice

#pragma once

#include "preferences/CodableColor.h"
#include "preferences/Palettes.h"
#include "spaces/SpaceInfo.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace roomlattice {

/// Whether a desktop's colour tints its name or fills the area behind it.
enum class ColorMode { ColorForeground, ColorBackground };

/// The colour of the pair that the mode uses.
CodableColor usedOf(const SpaceColorConfig& pair, ColorMode mode);

/// What the regular desktop at that position has where no colour is stored: the "Pastel" one, going round.
CodableColor defaultColorAt(std::size_t position);

/// The colours of all desktops at one moment: the stored ones, and for the rest a default by position. Changes concern
/// this value only, until it is stored again.
class DesktopColors {
 public:
  DesktopColors(const std::vector<SpaceInfo>& spaces, SpaceColors stored, ColorMode mode);

  /// That of the desktop's position among the regular ones; that of position 0 for any other uuid.
  CodableColor defaultColor(const std::string& uuid) const;

  /// The stored pair, or the default colour twice.
  SpaceColorConfig config(const std::string& uuid) const;

  /// The colour of that pair which the colour mode uses.
  CodableColor usedColor(const std::string& uuid) const;

  /// Replaces the colour that the mode uses; the other one of the pair stays.
  void setUsedColor(const std::string& uuid, const CodableColor& color);

  /// Deals the palette's colours out to the regular desktops in this way. It has at least one colour.
  void apply(const ColorPalette& palette);

  /// What is to be stored.
  const SpaceColors& stored() const { return stored_; }

 private:
  SpaceColors stored_;
  ColorMode mode_;
  // Of the regular desktops, in list order.
  std::vector<std::string> uuids_;
  std::unordered_map<std::string, std::size_t> positions_;
};

}  // namespace roomlattice

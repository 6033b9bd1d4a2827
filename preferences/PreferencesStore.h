#pragma once

#include "platform/Platform.h"
#include "preferences/CodableColor.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace roomlattice {

/// The width of the status item.
enum class MenuBarWidthMode { fitToTitle, maxTitleLength };

/// Whether a desktop's colour tints its name or fills the area behind it.
enum class ColorMode { colorForeground, colorBackground };

/// Typed access to the settings. Nothing is kept here: every read goes to the defaults, and an absent key or a value of
/// another type reads as the setting's default. Every write posts didChange once, synchronously, on the default centre.
/// No value is clamped. Main thread only.
class PreferencesStore {
 public:
  static constexpr std::string_view didChange = "PreferencesStoreDidChange";

  /// The instance of the installed platform, made on first use.
  static PreferencesStore& shared();

  /// "B&W", "Vivid", "Pastel", "Earth" and "Neon", each of sixteen opaque colours.
  static const std::vector<ColorPalette>& palettes();

  /// For shared().
  explicit PreferencesStore(platform::Platform& platform) : platform_(platform) {}

  /// Of the desktop's name on its label, in points.
  double signTextSize() const;
  void setSignTextSize(double points);

  /// Of labels during and ahead of swipes, 0–1.
  double signSwipeAlpha() const;
  void setSignSwipeAlpha(double alpha);

  bool showSignInSwipeMode() const;
  void setShowSignInSwipeMode(bool show);

  bool showSignAfterSelection() const;
  void setShowSignAfterSelection(bool show);

  bool showSpaceNameInMenuBar() const;
  void setShowSpaceNameInMenuBar(bool show);

  bool instantMenuSwitch() const;
  void setInstantMenuSwitch(bool instant);

  MenuBarWidthMode menuBarWidthMode() const;
  void setMenuBarWidthMode(MenuBarWidthMode mode);

  ColorMode colorMode() const;
  void setColorMode(ColorMode mode);

  /// Empty when nothing is stored or what is stored cannot be decoded as a whole.
  SpaceColors spaceColors() const;

  /// Stores the whole dictionary. Colours that have no JSON form leave the stored ones as they are.
  void setSpaceColors(const SpaceColors& colors);

  /// The "Pastel" colour at the desktop's position among the regular ones, going round; that of position 0 for any
  /// other uuid.
  static CodableColor defaultColor(const std::string& forSpaceUUID);

  /// The stored pair, or the default colour twice.
  SpaceColorConfig colorConfig(const std::string& forSpaceUUID) const;

  /// Deals the palette's colours out to the regular desktops, as the colour that the mode uses; the other colour of
  /// each pair and the pairs of other desktops stay. The palette has at least one colour.
  void applyPalette(const ColorPalette& palette);

 private:
  double number(const char* key, double fallback) const;
  bool flag(const char* key, bool fallback) const;
  std::string string(const char* key) const;
  void write(const char* key, const platform::Value& value);

  platform::Platform& platform_;
};

}  // namespace roomlattice

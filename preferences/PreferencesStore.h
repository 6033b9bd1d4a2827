#pragma once

#include "platform/Platform.h"
#include "preferences/DesktopColors.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace roomlattice {

/// The width of the status item.
enum class MenuBarWidthMode { FitToTitle, MaxTitleLength };

/// Typed access to the settings. Every read goes to the defaults, and an absent key or a value of another type reads as
/// the setting's default. Every write here posts didChange once, synchronously, on the default centre, and so does each
/// notice of writes by others, which not every backend gives. No value is clamped.
class PreferencesStore {
 public:
  static constexpr std::string_view didChange = "PreferencesStoreDidChange";

  /// The instance of the installed platform, made on first use.
  static PreferencesStore& shared();

  static const std::vector<ColorPalette>& palettes() { return roomlattice::palettes(); }

  /// The positions of `spaces` give desktops without a colour of their own one.
  PreferencesStore(platform::Platform& platform, const SpaceManager& spaces);

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

  /// Of stored colours, in bytes: those of some seven thousand desktops. Reading more would be felt.
  static constexpr std::size_t maximumColorsSize = 2 << 20;

  /// Empty when nothing is stored or what is stored is too long, or cannot be decoded as a whole.
  SpaceColors spaceColors() const;

  /// Stores the whole dictionary. Colours that have no JSON form, or too long a one, leave the stored ones as they are,
  /// and so do any while those that are stored are too many to be read: they would be lost.
  void setSpaceColors(const SpaceColors& colors);

  /// The colours of the desktops as they are now.
  DesktopColors desktopColors() const { return {spaces_.spaces(), spaceColors(), colorMode()}; }

  /// What DesktopColors::usedColor is for one desktop, whatever the number of them.
  CodableColor usedColor(const SpaceInfo& space) const;

  /// DesktopColors::defaultColor, which reads no setting.
  CodableColor defaultColor(const std::string& forSpaceUUID) const;

  /// DesktopColors::config.
  SpaceColorConfig colorConfig(const std::string& forSpaceUUID) const;

  /// Stores DesktopColors::apply.
  void applyPalette(const ColorPalette& palette);

 private:
  double number(const std::string& key, double fallback) const;
  bool flag(const std::string& key, bool fallback) const;
  std::string string(const std::string& key) const;
  const SpaceColors& storedColors() const;
  void write(const std::string& key, const platform::Value& value);
  bool isReadable(const platform::Value::Data& colors) const;

  platform::Platform& platform_;
  const SpaceManager& spaces_;

  // What was last decoded: the same text means the same colours, and there may be very many.
  struct Decoded {
    platform::Value text;
    SpaceColors colors;
  };
  mutable Decoded decoded_;
  mutable bool toldOfLength_ = false;
  platform::Registration changesElsewhere_;
};

}  // namespace roomlattice

#pragma once

#include "menubar/DesktopMenu.h"
#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceInfo.h"
#include "spaces/SpaceManager.h"

#include <array>
#include <functional>
#include <memory>

namespace roomlattice {

/// Owns the status item, with the active desktop's name in that desktop's colour or a grid icon, and its menu. It has
/// no state besides: every refresh, and every opening of the menu, computes everything from the model and the
/// preferences.
class MenuBarController {
 public:
  /// Puts the item into the status bar, refreshes it once and from then on at every change of what it shows.
  /// `showPreferencesWindow` is never empty.
  MenuBarController(platform::Platform& platform, SpaceManager& manager, const PreferencesStore& preferences,
                    std::function<void()> showPreferencesWindow);

  /// Recomputes title, icon, colours and width.
  void refreshTitle();

  /// Brings the menu up to date before it opens: a row for each regular desktop, then the commands.
  void menuNeedsUpdate(platform::Menu& menu) { desktopMenu_.fill(menu); }

  /// Opens the menu as a click on the item does.
  void openMenu() { statusItem_->openMenu(); }

  /// Brings the preferences window to the front of all applications.
  void showPreferences();

  /// Four rounded squares in black, 16 × 16 points; not yet marked as a template.
  static platform::Image makeIconImage();

  /// `color` as text on the status bar: a very dark one is lifted on a dark bar, a very light one halved on a light
  /// bar.
  platform::Color adjustedForeground(const platform::Color& color) const;

  /// Black or white, whichever reads better over `color`; white over a colour without an sRGB form.
  static platform::Color contrastingColor(const platform::Color& color);

  /// The colour of a desktop that the colour mode uses.
  platform::Color dotColor(const SpaceInfo& space) const;

 private:
  platform::StatusButtonContent titleContent() const;

  platform::Platform& platform_;
  const SpaceManager& manager_;
  const PreferencesStore& preferences_;
  std::function<void()> showPreferencesWindow_;
  DesktopMenu desktopMenu_;
  platform::Menu menu_;
  std::unique_ptr<platform::StatusItem> statusItem_;
  std::array<platform::Registration, 4> observers_;
};

}  // namespace roomlattice

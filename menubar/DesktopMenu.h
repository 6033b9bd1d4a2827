#pragma once

#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "support/Lifetime.h"

#include <functional>

namespace roomlattice {

/// What the status item's menu holds: a row for each regular desktop, then the commands.
class DesktopMenu {
 public:
  /// `showPreferences` is what the preferences command does; never empty.
  DesktopMenu(platform::Platform& platform, SpaceManager& manager, const PreferencesStore& preferences,
              std::function<void()> showPreferences);

  /// Replaces the menu's items by those of the present desktops.
  void fill(platform::Menu& menu) const;

 private:
  platform::ViewItem row(const SpaceInfo& space, const platform::Color& color) const;
  void switchTo(const SpaceInfo& space) const;

  platform::Platform& platform_;
  SpaceManager& manager_;
  const PreferencesStore& preferences_;
  std::function<void()> showPreferences_;
  // A row that was clicked calls back when its menu has closed, and by then all this may be gone.
  Lifetime lifetime_;
};

}  // namespace roomlattice

#pragma once

#include "platform/linux/tray/TrayWatch.h"
#include "platform/x11/statusitem/ItemSettings.h"

#include <functional>

namespace roomlattice::platform::x11 {

/// Where the status item is shown: as the user has chosen, and floating whenever no panel would show it.
class ItemPlacement {
 public:
  /// `changed` is called after each change of what this tells. The settings and the watch must outlive it.
  ItemPlacement(ItemSettings& settings, linux::TrayWatch& watch, std::function<void()> changed);

  /// Nowhere until it is known whether there is a panel: an item that comes and goes at the start would be a nuisance.
  bool isInPanel() const;
  bool isFloating() const;

  ItemPlace choice() const { return choice_; }
  void choose(ItemPlace place);

  /// To be called when somebody else has changed the settings.
  void settingsChanged();

 private:
  ItemSettings& settings_;
  linux::TrayWatch& watch_;
  std::function<void()> changed_;
  ItemPlace choice_;
  Registration hostChanges_;
};

}  // namespace roomlattice::platform::x11

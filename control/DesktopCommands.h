#pragma once

#include "control/DesktopSwitcher.h"
#include "labels/SpaceSignWindowController.h"
#include "menubar/MenuBarController.h"
#include "platform/ControlEndpoint.h"
#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "support/Lifetime.h"
#include "support/Listeners.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice {

/// Carries out on the program what other programs ask for.
class DesktopCommands final : public platform::Commands {
 public:
  DesktopCommands(platform::Platform& platform, SpaceManager& manager, const PreferencesStore& preferences,
                  MenuBarController& menuBar, SpaceSignWindowController& signs);

  std::vector<platform::DesktopState> desktops() const override;
  std::optional<platform::DesktopState> currentDesktop() const override;

  /// Switching is instant whatever the menu's setting says: whoever presses a key or runs a script wants to be there.
  platform::CommandResult switchTo(const std::string& desktop) override;
  platform::CommandResult switchToNext() override;
  platform::CommandResult switchToPrevious() override;

  platform::CommandResult rename(const std::string& desktop, const std::string& name) override;
  platform::CommandResult renameCurrent(const std::string& name) override;
  platform::CommandResult showLabels() override;
  platform::CommandResult hideLabels() override;
  platform::CommandResult openMenu() override;
  platform::CommandResult openPreferences() override;
  platform::CommandResult startTour() override;
  platform::CommandResult quit() override;

  platform::Registration observe(std::function<void(const std::vector<platform::DesktopChange>&)> handler) override;

 private:
  platform::CommandResult step(platform::Direction direction);
  /// Why nothing leads away from there, which is no regular desktop of the list.
  platform::CommandError noWayFrom(platform::SpaceID space) const;
  platform::CommandResult setName(const SpaceInfo& space, const std::string& name);
  void activeChanged();
  void listChanged();
  void update(std::vector<platform::DesktopState> now);
  void tell(const std::vector<platform::DesktopChange>& changes);

  /// Carries `act` out when the answer is on its way: it may take as long as a menu is open, or end the program.
  platform::CommandResult later(std::function<void()> act);

  platform::Platform& platform_;
  SpaceManager& manager_;
  const PreferencesStore& preferences_;
  MenuBarController& menuBar_;
  SpaceSignWindowController& signs_;
  DesktopSwitcher switcher_;
  // As the listeners know them.
  std::vector<platform::DesktopState> told_;
  // What has not changed in the model since then is as they know it.
  SpaceTable::Moment toldAt_;
  Listeners<const std::vector<platform::DesktopChange>&> listeners_;
  std::array<platform::Registration, 3> observers_;
  Lifetime lifetime_;
};

}  // namespace roomlattice

#include "menubar/MenuBarController.h"
#include "menubar/SpaceRowView.h"
#include "preferences/PreferencesStore.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace roomlattice {
namespace {

constexpr platform::Size rowSize{220.0, 24.0};

std::unique_ptr<SpaceRowView> makeRow(platform::Platform& platform, const SpaceInfo& space) {
  const SpaceManager& manager = SpaceManager::shared();
  auto row = std::make_unique<SpaceRowView>(platform, space, space.spaceID == manager.activeSpaceID(),
                                            MenuBarController::dotColor(space), manager.displayName(space));
  row->setFrame({{}, rowSize});
  row->onSwitch = [space] {
    const bool instant = PreferencesStore::shared().instantMenuSwitch();
    SpaceManager::shared().switchToSpace(space, instant ? SwitchStyle::Instant : SwitchStyle::Animated);
  };
  row->onCommitRename = [space](const std::string& name) { SpaceManager::shared().setName(name, space); };
  return row;
}

platform::Value representation(const SpaceInfo& space) {
  return platform::Value::Dictionary{{"spaceID", static_cast<std::int64_t>(space.spaceID)},
                                     {"uuid", space.uuid},
                                     {"displayUUID", space.displayUUID},
                                     {"type", space.type}};
}

}  // namespace

void MenuBarController::menuNeedsUpdate(platform::Menu& menu) {
  menu.items.clear();
  for (const SpaceInfo& space : regularSpaces(SpaceManager::shared().spaces())) {
    menu.items.emplace_back(platform::ViewItem{makeRow(platform_, space), representation(space)});
  }
  menu.items.emplace_back(platform::SeparatorItem{});
  menu.items.emplace_back(platform::CommandItem{"Preferences\u2026", ",", [this] { showPreferences(); }});
  menu.items.emplace_back(platform::SeparatorItem{});
  menu.items.emplace_back(platform::CommandItem{"Quit Plinkhaven", "q", [this] { platform_.application().terminate(); },
                                                platform::CommandRole::Quit});
}

void MenuBarController::showPreferences() {
  PreferencesWindowController::shared().showWindow();
  platform_.application().activateIgnoringOtherApps();
}

}  // namespace roomlattice

#include "menubar/DesktopMenu.h"

#include "menubar/SpaceRowView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace roomlattice {
namespace {

constexpr platform::Size rowSize{220.0, 24.0};

platform::Value representation(const SpaceInfo& space) {
  return platform::Value::Dictionary{{"spaceID", static_cast<std::int64_t>(space.spaceID)},
                                     {"uuid", space.uuid},
                                     {"displayUUID", space.displayUUID},
                                     {"type", space.type}};
}

}  // namespace

DesktopMenu::DesktopMenu(platform::Platform& platform, SpaceManager& manager, const PreferencesStore& preferences,
                         std::function<void()> showPreferences)
    : platform_(platform), manager_(manager), preferences_(preferences), showPreferences_(std::move(showPreferences)) {}

void DesktopMenu::fill(platform::Menu& menu) const {
  const DesktopColors colors = preferences_.desktopColors();
  menu.items.clear();
  for (const SpaceInfo& space : regularSpaces(manager_.spaces())) {
    menu.items.emplace_back(row(space, colors.usedColor(space.uuid).color()));
  }
  menu.items.emplace_back(platform::SeparatorItem{});
  menu.items.emplace_back(platform::CommandItem{"Preferences\u2026", ",", showPreferences_});
  menu.items.emplace_back(platform::SeparatorItem{});
  menu.items.emplace_back(platform::CommandItem{"Quit Plinkhaven", "q",
                                                [&application = platform_.application()] { application.terminate(); },
                                                platform::CommandRole::Quit});
}

platform::ViewItem DesktopMenu::row(const SpaceInfo& space, const platform::Color& color) const {
  const bool isActive = space.spaceID == manager_.activeSpaceID();
  const std::string name = manager_.displayName(space);
  auto view = std::make_unique<SpaceRowView>(platform_, space, isActive, color, name);
  view->setFrame({{}, rowSize});
  view->onSwitch = lifetime_.guard([this, space] { switchTo(space); });
  view->onCommitRename = [this, space](const std::string& text) { manager_.setName(text, space); };
  return {.view = std::move(view),
          .representedObject = representation(space),
          .description = name,
          .state = isActive ? platform::RowState::Chosen : platform::RowState::Ordinary};
}

void DesktopMenu::switchTo(const SpaceInfo& space) const {
  manager_.switchToSpace(space, preferences_.instantMenuSwitch() ? SwitchStyle::Instant : SwitchStyle::Animated);
}

}  // namespace roomlattice

#include "menubar/MenuBarController.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace roomlattice {
namespace {

using platform::Color;

constexpr double fixedWidth = 140.0;
constexpr double titleCornerRadius = 3.0;

/// Rec. 601 luma of gamma-encoded components; alpha takes no part. Sums that are exactly one of the strict bounds below
/// in decimals lie beside it in binary fractions, by less than what is rounded away here.
double luminance(const Color& color) {
  constexpr double steps = 1e12;
  return std::round((0.299 * color.red + 0.587 * color.green + 0.114 * color.blue) * steps) / steps;
}

Color mapComponents(const Color& color, double (*map)(double)) {
  return {map(color.red), map(color.green), map(color.blue), color.alpha};
}

}  // namespace

MenuBarController::MenuBarController(platform::Platform& platform, SpaceManager& manager,
                                     const PreferencesStore& preferences, std::function<void()> showPreferencesWindow)
    : platform_(platform),
      manager_(manager),
      preferences_(preferences),
      showPreferencesWindow_(std::move(showPreferencesWindow)),
      desktopMenu_(platform, manager, preferences, [this] { showPreferences(); }),
      statusItem_(platform.userInterface().createStatusItem(platform::VariableLength{})) {
  menu_.needsUpdate = [this](platform::Menu& menu) { menuNeedsUpdate(menu); };
  statusItem_->setMenu(&menu_);
  refreshTitle();
  platform::Notifications& notifications = platform.notifications();
  const auto refresh = [this] { refreshTitle(); };
  observers_ = {
      notifications.defaultCenter().observe(SpaceManager::activeChanged, refresh),
      notifications.defaultCenter().observe(SpaceManager::didChange, refresh),
      notifications.defaultCenter().observe(PreferencesStore::didChange, refresh),
      notifications.distributedCenter().observe(platform::notification::interfaceThemeChanged, refresh),
  };
}

void MenuBarController::refreshTitle() {
  if (platform::StatusButton* button = statusItem_->button()) {
    if (!preferences_.showSpaceNameInMenuBar()) {
      // The icon keeps its square whatever the width mode.
      platform::Image icon = makeIconImage();
      icon.isTemplate = true;
      button->setContent({.image = std::move(icon)});
      statusItem_->setLength(platform::SquareLength{});
      return;
    }
    button->setContent(titleContent());
  }
  if (preferences_.menuBarWidthMode() == MenuBarWidthMode::MaxTitleLength) {
    statusItem_->setLength(platform::FixedLength{fixedWidth});
  } else {
    statusItem_->setLength(platform::VariableLength{});
  }
}

platform::StatusButtonContent MenuBarController::titleContent() const {
  const SpaceInfo* active = manager_.activeSpace();
  if (active == nullptr) {
    return {.title = {.text = "Desktops"}};
  }
  const Color color = dotColor(*active);
  const std::optional<int> number = manager_.defaultNumber(*active);
  const std::string text = " " + manager_.displayName(*active) + " ";
  if (preferences_.colorMode() == ColorMode::ColorForeground) {
    return {.title = {.text = text, .color = adjustedForeground(color), .number = number}};
  }
  return {.title = {.text = text, .color = contrastingColor(color), .number = number},
          .background = color,
          .cornerRadius = titleCornerRadius};
}

platform::Image MenuBarController::makeIconImage() {
  constexpr double side = 7.25;
  constexpr double far = 8.75;
  constexpr double radius = 2.0;
  platform::Image image{.size = {16.0, 16.0}};
  for (const platform::Point origin : {platform::Point{0.0, far}, {far, far}, {0.0, 0.0}, {far, 0.0}}) {
    image.shapes.push_back({.kind = platform::ShapeKind::RoundedRect,
                            .bounds = {origin, {side, side}},
                            .cornerRadius = radius,
                            .color = Color::black()});
  }
  return image;
}

Color MenuBarController::adjustedForeground(const Color& color) const {
  const Color given = color.inSRGB().value_or(color);
  const double luma = luminance(given);
  if (platform_.userInterface().effectiveAppearance() == platform::Appearance::Dark) {
    const auto lift = [](double component) { return std::min(component * 1.5 + 0.2, 1.0); };
    return luma < 0.25 ? mapComponents(given, lift) : color;
  }
  const auto halve = [](double component) { return component * 0.5; };
  return luma > 0.75 ? mapComponents(given, halve) : color;
}

Color MenuBarController::contrastingColor(const Color& color) {
  return luminance(color.inSRGB().value_or(Color::black())) > 0.5 ? Color::black() : Color::white();
}

Color MenuBarController::dotColor(const SpaceInfo& space) const {
  return preferences_.usedColor(space).color();
}

void MenuBarController::showPreferences() {
  showPreferencesWindow_();
  platform_.application().activateIgnoringOtherApps();
}

}  // namespace roomlattice

#include "preferences/PreferencesStore.h"

#include "support/Installation.h"

#include <cstddef>
#include <cstring>
#include <optional>
#include <utility>

namespace roomlattice {
namespace {

using platform::Value;

// Strings: some are asked for twice a second, and too long to be made of text for nothing.
const std::string signTextSizeKey = "SignTextSize";
const std::string signSwipeAlphaKey = "SignSwipeAlpha";
const std::string showSignInSwipeModeKey = "ShowSignInSwipeMode";
const std::string showSignAfterSelectionKey = "ShowSignAfterSelection";
const std::string showSpaceNameInMenuBarKey = "ShowSpaceNameInMenuBar";
const std::string instantMenuSwitchKey = "InstantMenuSwitch";
const std::string menuBarWidthModeKey = "MenuBarWidthMode";
const std::string colorModeKey = "ColorMode";
const std::string spaceColorsKey = "SpaceColors";

constexpr const char* rawValue(MenuBarWidthMode mode) {
  return mode == MenuBarWidthMode::FitToTitle ? "fitToTitle" : "maxTitleLength";
}

constexpr const char* rawValue(ColorMode mode) {
  return mode == ColorMode::ColorForeground ? "colorForeground" : "colorBackground";
}

/// The library compares byte by byte, and the colours of many desktops are read for each title.
bool areSame(const Value::Data& a, const Value::Data& b) {
  return &a == &b || (a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()) == 0));
}

}  // namespace

PreferencesStore::PreferencesStore(platform::Platform& platform, const SpaceManager& spaces)
    : platform_(platform),
      spaces_(spaces),
      changesElsewhere_(platform.notifications().defaultCenter().observe(
          platform::notification::defaultsDidChangeElsewhere,
          [&center = platform.notifications().defaultCenter()] { center.post(didChange); })) {}

PreferencesStore& PreferencesStore::shared() {
  return Installation::current().shared<PreferencesStore>(SpaceManager::shared());
}

double PreferencesStore::signTextSize() const {
  return number(signTextSizeKey, 160.0);
}
void PreferencesStore::setSignTextSize(double points) {
  write(signTextSizeKey, points);
}

double PreferencesStore::signSwipeAlpha() const {
  return number(signSwipeAlphaKey, 0.78);
}
void PreferencesStore::setSignSwipeAlpha(double alpha) {
  write(signSwipeAlphaKey, alpha);
}

bool PreferencesStore::showSignInSwipeMode() const {
  return flag(showSignInSwipeModeKey, true);
}
void PreferencesStore::setShowSignInSwipeMode(bool show) {
  write(showSignInSwipeModeKey, show);
}

bool PreferencesStore::showSignAfterSelection() const {
  return flag(showSignAfterSelectionKey, true);
}
void PreferencesStore::setShowSignAfterSelection(bool show) {
  write(showSignAfterSelectionKey, show);
}

bool PreferencesStore::showSpaceNameInMenuBar() const {
  return flag(showSpaceNameInMenuBarKey, true);
}
void PreferencesStore::setShowSpaceNameInMenuBar(bool show) {
  write(showSpaceNameInMenuBarKey, show);
}

bool PreferencesStore::instantMenuSwitch() const {
  return flag(instantMenuSwitchKey, false);
}
void PreferencesStore::setInstantMenuSwitch(bool instant) {
  write(instantMenuSwitchKey, instant);
}

MenuBarWidthMode PreferencesStore::menuBarWidthMode() const {
  const bool fixed = string(menuBarWidthModeKey) == rawValue(MenuBarWidthMode::MaxTitleLength);
  return fixed ? MenuBarWidthMode::MaxTitleLength : MenuBarWidthMode::FitToTitle;
}

void PreferencesStore::setMenuBarWidthMode(MenuBarWidthMode mode) {
  write(menuBarWidthModeKey, rawValue(mode));
}

ColorMode PreferencesStore::colorMode() const {
  const bool foreground = string(colorModeKey) == rawValue(ColorMode::ColorForeground);
  return foreground ? ColorMode::ColorForeground : ColorMode::ColorBackground;
}

void PreferencesStore::setColorMode(ColorMode mode) {
  write(colorModeKey, rawValue(mode));
}

SpaceColors PreferencesStore::spaceColors() const {
  return storedColors();
}

const SpaceColors& PreferencesStore::storedColors() const {
  const std::optional<Value> stored = platform_.defaults().object(spaceColorsKey);
  const Value::Data* data = stored ? stored->asData() : nullptr;
  if (data == nullptr || !isReadable(*data)) {
    decoded_ = {};
  } else if (const Value::Data* known = decoded_.text.asData(); known == nullptr || !areSame(*known, *data)) {
    const std::optional<Value> document = platform_.json().decode(*data);
    decoded_ = {*stored, document ? decodeSpaceColors(*document).value_or(SpaceColors()) : SpaceColors()};
  }
  return decoded_.colors;
}

void PreferencesStore::setSpaceColors(const SpaceColors& colors) {
  const std::optional<Value> before = platform_.defaults().object(spaceColorsKey);
  const Value::Data* stored = before ? before->asData() : nullptr;
  std::optional<Value::Data> data = platform_.json().encode(encode(colors));
  if (data && isReadable(*data) && (stored == nullptr || isReadable(*stored))) {
    platform_.defaults().set(spaceColorsKey, *std::move(data));
  }
  platform_.notifications().defaultCenter().post(didChange);
}

CodableColor PreferencesStore::usedColor(const SpaceInfo& space) const {
  const SpaceColors& stored = storedColors();
  if (const auto found = stored.find(space.uuid); found != stored.end()) {
    return usedOf(found->second, colorMode());
  }
  return defaultColor(space.uuid);
}

CodableColor PreferencesStore::defaultColor(const std::string& forSpaceUUID) const {
  const SpaceInfo* space = spaces_.table().firstRegular(forSpaceUUID);
  const int number = space == nullptr ? 1 : spaces_.table().rowOf(*space).numbers.overall;
  return defaultColorAt(static_cast<std::size_t>(number - 1));
}

SpaceColorConfig PreferencesStore::colorConfig(const std::string& forSpaceUUID) const {
  return desktopColors().config(forSpaceUUID);
}

void PreferencesStore::applyPalette(const ColorPalette& palette) {
  DesktopColors colors = desktopColors();
  colors.apply(palette);
  setSpaceColors(colors.stored());
}

bool PreferencesStore::isReadable(const Value::Data& colors) const {
  const bool isTooLong = colors.size() > maximumColorsSize;
  if (isTooLong && !std::exchange(toldOfLength_, true)) {
    platform_.system().log("[Roomlattice] SpaceColors is too long to be read, and left as it is");
  }
  return !isTooLong;
}

double PreferencesStore::number(const std::string& key, double fallback) const {
  const std::optional<Value> stored = platform_.defaults().object(key);
  return stored ? stored->toDouble().value_or(fallback) : fallback;
}

bool PreferencesStore::flag(const std::string& key, bool fallback) const {
  const std::optional<Value> stored = platform_.defaults().object(key);
  return stored ? stored->toBool().value_or(fallback) : fallback;
}

std::string PreferencesStore::string(const std::string& key) const {
  const std::optional<Value> stored = platform_.defaults().object(key);
  const std::string* string = stored ? stored->asString() : nullptr;
  return string == nullptr ? std::string() : *string;
}

void PreferencesStore::write(const std::string& key, const Value& value) {
  platform_.defaults().set(key, value);
  platform_.notifications().defaultCenter().post(didChange);
}

}  // namespace roomlattice

#include "menubar/MenuBarController.h"

#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"
#include "tests/support/SimulatedFixture.h"

#include <optional>
#include <string>
#include <vector>

namespace roomlattice {
namespace {

using platform::Appearance;
using platform::Color;
using platform::FixedLength;
using platform::SquareLength;
using platform::StatusButtonContent;
using platform::StatusItemLength;
using platform::VariableLength;

constexpr Color pastelPink{1.0, 0.71, 0.76, 1.0};
constexpr Color pastelBlue{0.69, 0.83, 1.0, 1.0};

constexpr Color grey(double level) {
  return {level, level, level, 1.0};
}

class MenuBarControllerTest : public tests::SimulatedFixture {
 protected:
  MenuBarControllerTest() {
    SpaceObserver(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared())
        .refresh();
  }

  const StatusButtonContent& content() { return desktop.statusItem()->content(); }
  const StatusItemLength& length() { return desktop.statusItem()->length(); }

  void setColors(const CodableColor& foreground, const CodableColor& background) {
    PreferencesStore::shared().setSpaceColors({{SpaceManager::shared().activeSpace()->uuid, {foreground, background}}});
  }

  void nameActive(const std::string& name) {
    SpaceManager::shared().setName(name, *SpaceManager::shared().activeSpace());
  }

  PreferencesStore& preferences = PreferencesStore::shared();
};

TEST_F(MenuBarControllerTest, ShowsTheNameWithABlankOnEachSide) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(content().title.text, " Desktop 1 ");
  nameActive("Work");
  EXPECT_EQ(content().title.text, " Work ");
}

TEST_F(MenuBarControllerTest, TellsTheNumberOfADesktopWithoutAName) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(content().title.number, 1);
  preferences.setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(content().title.number, 1);
  nameActive("Work");
  EXPECT_EQ(content().title.number, std::nullopt);
}

TEST_F(MenuBarControllerTest, FillsTheBackgroundWithTheDesktopsColour) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(content().background, pastelPink);
  EXPECT_EQ(content().cornerRadius, 3.0);
  EXPECT_EQ(content().title.color, Color::black());
  EXPECT_FALSE(content().image);
}

TEST_F(MenuBarControllerTest, TakesTheBackgroundOfThePairInBackgroundMode) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  setColors({1.0, 1.0, 1.0, 1.0}, {0.1, 0.2, 0.3, 0.5});
  EXPECT_EQ(content().background, (Color{0.1, 0.2, 0.3, 0.5}));
  EXPECT_EQ(content().title.color, Color::white());
}

TEST_F(MenuBarControllerTest, TintsTheTitleInForegroundMode) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  setColors({0.2, 0.4, 0.6, 0.5}, {1.0, 1.0, 1.0, 1.0});
  preferences.setColorMode(ColorMode::ColorForeground);
  EXPECT_FALSE(content().background);
  EXPECT_EQ(content().title.color, (Color{0.2, 0.4, 0.6, 0.5}));
  EXPECT_EQ(content().title.text, " Desktop 1 ");
}

TEST_F(MenuBarControllerTest, ShowsThePlainWordWhenNoDesktopIsActive) {
  desktop.overrideActiveSpace(4711);
  SpaceObserver(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared())
      .refresh();
  for (const ColorMode mode : {ColorMode::ColorBackground, ColorMode::ColorForeground}) {
    preferences.setColorMode(mode);
    const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
    EXPECT_EQ(content(), (StatusButtonContent{.title = {.text = "Desktops"}}));
    EXPECT_EQ(length(), StatusItemLength(VariableLength{}));
  }
}

TEST_F(MenuBarControllerTest, NamesAnActiveFullScreenSpace) {
  desktop.enterFullScreen();
  SpaceObserver(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared())
      .refresh();
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(content().title.text, " Desktop ");
  EXPECT_EQ(content().background, pastelPink);
}

TEST_F(MenuBarControllerTest, FitsTheTitleOrKeepsAFixedWidth) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(length(), StatusItemLength(VariableLength{}));
  preferences.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength);
  for (const std::string& name : {std::string("W"), std::string(40, 'W')}) {
    nameActive(name);
    EXPECT_EQ(length(), StatusItemLength(FixedLength{140.0}));
  }
  preferences.setMenuBarWidthMode(MenuBarWidthMode::FitToTitle);
  EXPECT_EQ(length(), StatusItemLength(VariableLength{}));
}

TEST_F(MenuBarControllerTest, ShowsATemplateIconAtSquareLengthWhateverTheWidthMode) {
  preferences.setShowSpaceNameInMenuBar(false);
  preferences.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength);
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  platform::Image icon = MenuBarController::makeIconImage();
  EXPECT_FALSE(icon.isTemplate);
  icon.isTemplate = true;
  EXPECT_EQ(content(), (StatusButtonContent{.image = icon}));
  EXPECT_EQ(length(), StatusItemLength(SquareLength{}));
}

TEST_F(MenuBarControllerTest, ReturnsFromTheIconToTheName) {
  preferences.setShowSpaceNameInMenuBar(false);
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  preferences.setShowSpaceNameInMenuBar(true);
  EXPECT_FALSE(content().image);
  EXPECT_EQ(content().title.text, " Desktop 1 ");
  EXPECT_EQ(length(), StatusItemLength(VariableLength{}));
}

TEST_F(MenuBarControllerTest, DrawsFourRoundedSquaresWithACrossBetween) {
  const platform::Image icon = MenuBarController::makeIconImage();
  EXPECT_EQ(icon.size, (platform::Size{16.0, 16.0}));
  std::vector<platform::Point> origins;
  for (const platform::Shape& shape : icon.shapes) {
    EXPECT_EQ(shape.kind, platform::ShapeKind::RoundedRect);
    EXPECT_EQ(shape.bounds.size, (platform::Size{7.25, 7.25}));
    EXPECT_EQ(shape.cornerRadius, 2.0);
    EXPECT_EQ(shape.color, Color::black());
    EXPECT_FALSE(shape.lineWidth);
    origins.push_back(shape.bounds.origin);
  }
  EXPECT_EQ(origins, (std::vector<platform::Point>{{0.0, 8.75}, {8.75, 8.75}, {0.0, 0.0}, {8.75, 0.0}}));
}

TEST_F(MenuBarControllerTest, OnlySetsTheLengthWhereTheBarGivesNoButton) {
  desktop.faults.statusButtonMissing = true;
  preferences.setShowSpaceNameInMenuBar(false);
  preferences.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength);
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(length(), StatusItemLength(FixedLength{140.0}));
  EXPECT_EQ(desktop.statusItem()->contentWrites(), 0);
}

TEST_F(MenuBarControllerTest, RefreshesOnEveryChangeOfWhatItShows) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_EQ(desktop.statusItem()->contentWrites(), 1);
  int writes = 1;
  for (const std::string_view name :
       {SpaceManager::activeChanged, SpaceManager::didChange, PreferencesStore::didChange}) {
    platform().notifications().defaultCenter().post(name);
    EXPECT_EQ(desktop.statusItem()->contentWrites(), ++writes) << name;
  }
  platform().notifications().distributedCenter().post("AppleInterfaceThemeChangedNotification");
  EXPECT_EQ(desktop.statusItem()->contentWrites(), ++writes);
}

TEST_F(MenuBarControllerTest, FollowsTheActiveDesktop) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  desktop.switchTo(desktop.desktopAt(1));
  SpaceObserver(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared())
      .refresh();
  EXPECT_EQ(content().title.text, " Desktop 2 ");
  EXPECT_EQ(content().background, pastelBlue);
}

TEST_F(MenuBarControllerTest, ReadjustsTheTitleWhenTheDesktopTurnsDark) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  preferences.setColorMode(ColorMode::ColorForeground);
  setColors({0.0, 0.0, 0.0, 1.0}, {});
  EXPECT_EQ(content().title.color, Color::black());
  desktop.setAppearance(Appearance::Dark);
  EXPECT_EQ(content().title.color, grey(0.2));
}

TEST_F(MenuBarControllerTest, LeavesTheBarWithItsController) {
  std::optional<MenuBarController> controller(std::in_place, platform(), SpaceManager::shared(), preferences, [] {});
  EXPECT_NE(desktop.statusItem(), nullptr);
  controller.reset();
  EXPECT_EQ(desktop.statusItem(), nullptr);
  preferences.setShowSpaceNameInMenuBar(false);
}

struct Adjustment {
  std::optional<Appearance> appearance;
  Color given;
  Color adjusted;
};

TEST_F(MenuBarControllerTest, AdjustsVeryDarkAndVeryLightForegroundsOnly) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  const Color lowest{.red = 0.0, .green = 0.0, .blue = 0.0, .alpha = 0.3};
  for (const auto& [appearance, given, adjusted] : {
           Adjustment{Appearance::Dark, grey(0.25), grey(0.25)},
           Adjustment{Appearance::Dark, grey(0.24), grey(0.24 * 1.5 + 0.2)},
           Adjustment{Appearance::Dark, {0.6, 0.0, 0.0, 1.0}, {1.0, 0.2, 0.2, 1.0}},
           Adjustment{Appearance::Dark, lowest, {0.2, 0.2, 0.2, 0.3}},
           Adjustment{Appearance::Dark, grey(1.0), grey(1.0)},
           Adjustment{Appearance::Light, grey(0.75), grey(0.75)},
           Adjustment{Appearance::Light, grey(0.76), grey(0.38)},
           Adjustment{Appearance::Light, grey(1.0), grey(0.5)},
           Adjustment{Appearance::Light, {1.0, 1.0, 0.0, 0.5}, {0.5, 0.5, 0.0, 0.5}},
           Adjustment{Appearance::Light, grey(0.0), grey(0.0)},
           Adjustment{std::nullopt, grey(1.0), grey(0.5)},
           Adjustment{std::nullopt, grey(0.1), grey(0.1)},
       }) {
    desktop.setAppearance(appearance);
    EXPECT_EQ(controller.adjustedForeground(given), adjusted) << given.red << " " << given.green;
  }
}

TEST_F(MenuBarControllerTest, AdjustsAColourWithoutAnSrgbFormAsItIsGiven) {
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  Color pattern = grey(0.9);
  pattern.space = platform::ColorSpace::Unconvertible;
  EXPECT_EQ(controller.adjustedForeground(pattern), grey(0.45));
  pattern = grey(0.5);
  pattern.space = platform::ColorSpace::Unconvertible;
  EXPECT_EQ(controller.adjustedForeground(pattern), pattern);
}

TEST(MenuBarControllerContrastTest, IsBlackOnlyOverALuminanceAboveOneHalf) {
  EXPECT_EQ(MenuBarController::contrastingColor(grey(0.5)), Color::white());
  EXPECT_EQ(MenuBarController::contrastingColor(grey(0.51)), Color::black());
  EXPECT_EQ(MenuBarController::contrastingColor({0.0, 0.85, 0.0, 1.0}), Color::white());
  EXPECT_EQ(MenuBarController::contrastingColor({0.0, 0.86, 0.0, 1.0}), Color::black());
  EXPECT_EQ(MenuBarController::contrastingColor({1.0, 1.0, 1.0, 0.0}), Color::black());
}

/// In binary fractions such sums may lie beside the bound.
TEST(MenuBarControllerContrastTest, IsWhiteWhereTheLuminanceIsOneHalfInDecimals) {
  for (const Color& color : {Color{0.09, 0.67, 0.7, 1.0}, Color{0.2, 0.68, 0.36, 1.0}, Color{0.95, 0.23, 0.71, 1.0}}) {
    EXPECT_EQ(MenuBarController::contrastingColor(color), Color::white()) << color.red;
  }
}

TEST(MenuBarControllerContrastTest, IsWhiteOverAColourWithoutAnSrgbForm) {
  Color pattern = Color::white();
  pattern.space = platform::ColorSpace::Unconvertible;
  EXPECT_EQ(MenuBarController::contrastingColor(pattern), Color::white());
}

TEST_F(MenuBarControllerTest, GivesADotTheColourTheModeUses) {
  const SpaceInfo active = *SpaceManager::shared().activeSpace();
  const MenuBarController controller(platform(), SpaceManager::shared(), preferences, [] {});
  setColors({0.1, 0.2, 0.3, 1.0}, {0.4, 0.5, 0.6, 0.5});
  EXPECT_EQ(controller.dotColor(active), (Color{0.4, 0.5, 0.6, 0.5}));
  preferences.setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(controller.dotColor(active), (Color{0.1, 0.2, 0.3, 1.0}));
}

}  // namespace
}  // namespace roomlattice

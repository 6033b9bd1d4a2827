#include "tests/preferences/PreferencesFixture.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::ColorSpace;
using platform::ColorWellControl;
using platform::LabelControl;
using platform::PopUpControl;
using platform::Rect;
using platform::Value;

class ColorsPageTest : public PreferencesFixture {
 protected:
  static constexpr CodableColor red{0.9, 0.1, 0.1, 1.0};
  static constexpr CodableColor blue{0.1, 0.1, 0.9, 0.5};
  static constexpr CodableColor pastel0{1.0, 0.71, 0.76, 1.0};
  static constexpr CodableColor pastel1{0.69, 0.83, 1.0, 1.0};

  /// The wells from the top.
  std::vector<ColorWellControl> wells() {
    std::vector<ColorWellControl> wells;
    for (const platform::PlacedControl& placed : page(1).controls) {
      if (const auto* well = std::get_if<ColorWellControl>(&placed.control)) {
        wells.push_back(*well);
      }
    }
    return wells;
  }

  std::string labelAt(std::size_t control) { return std::get<LabelControl>(page(1).controls.at(control).control).text; }

  std::string uuid(std::size_t desktopIndex) {
    return regularSpaces(SpaceManager::shared().spaces()).at(desktopIndex).uuid;
  }
};

TEST_F(ColorsPageTest, IsLaidOut) {
  openPreferences();
  std::vector<Rect> frames;
  for (const platform::PlacedControl& placed : page(1).controls) {
    frames.push_back(placed.frame);
  }
  EXPECT_EQ(frames, (std::vector<Rect>{{{20.0, 355.75}, {160.0, 16.25}},
                                       {{192.0, 351.75}, {180.0, 24.25}},
                                       {{20.0, 315.5}, {160.0, 16.25}},
                                       {{192.0, 311.5}, {180.0, 24.25}},
                                       {{20.0, 279.25}, {109.6875, 16.25}},
                                       {{20.0, 243.125}, {160.0, 16.25}},
                                       {{192.0, 239.25}, {44.0, 24.0}},
                                       {{20.0, 203.125}, {160.0, 16.25}},
                                       {{192.0, 199.25}, {44.0, 24.0}},
                                       {{20.0, 163.125}, {160.0, 16.25}},
                                       {{192.0, 159.25}, {44.0, 24.0}}}));
}

TEST_F(ColorsPageTest, HasItsTexts) {
  openPreferences();
  EXPECT_EQ(labelAt(0), "Color Mode:");
  EXPECT_EQ(labelAt(2), "Palette:");
  EXPECT_EQ(labelAt(4), "Desktop Colors:");
  EXPECT_EQ(std::get<LabelControl>(page(1).controls.at(4).control).font,
            (platform::Font{.size = 13.0, .weight = platform::FontWeight::Semibold}));
  EXPECT_EQ(labelAt(5), "    Desktop 1");
  EXPECT_EQ(labelAt(7), "    Desktop 2");
  EXPECT_EQ(control<PopUpControl>("Color Mode").items, (std::vector<std::string>{"Text Color", "Background Color"}));
  EXPECT_EQ(control<PopUpControl>("Palette").items,
            (std::vector<std::string>{"B&W", "Vivid", "Pastel", "Earth", "Neon"}));
}

TEST_F(ColorsPageTest, NamesDesktopsAsTheUserDid) {
  readSpaces();
  SpaceManager::shared().setName("Mail: home", SpaceManager::shared().spaces()[1]);
  openPreferences();
  EXPECT_EQ(labelAt(7), "    Mail: home");
}

TEST_F(ColorsPageTest, OpensOnTheModeThatIsStored) {
  struct Case {
    Value stored;
    int index;
  };
  for (const auto& [value, index] : {Case{Value(), 1}, Case{"colorForeground", 0}, Case{"colorBackground", 1},
                                     Case{"colorforeground", 1}, Case{0, 1}}) {
    desktop.storedDefaults()["ColorMode"] = value;
    relaunchPreferences();
    EXPECT_EQ(control<PopUpControl>("Color Mode").selectedIndex, index);
  }
}

TEST_F(ColorsPageTest, OpensOnPastelWhateverWasApplied) {
  openPreferences();
  EXPECT_EQ(control<PopUpControl>("Palette").selectedIndex, 2);
  user.chooses("Palette", "Neon");
  relaunchPreferences();
  EXPECT_EQ(control<PopUpControl>("Palette").selectedIndex, 2);
}

TEST_F(ColorsPageTest, StoresTheMode) {
  openPreferences();
  user.chooses("Color Mode", "Text Color");
  EXPECT_EQ(stored("ColorMode"), Value("colorForeground"));
  EXPECT_EQ(takeNotifications(), 1);
  user.chooses("Color Mode", "Background Color");
  EXPECT_EQ(stored("ColorMode"), Value("colorBackground"));
  EXPECT_EQ(takeNotifications(), 1);
}

TEST_F(ColorsPageTest, IgnoresIndicesThatNoItemHas) {
  openPreferences();
  const Value::Dictionary before = desktop.storedDefaults();
  for (const int index : {-1, 2, 1000}) {
    window().choose(reference("Color Mode"), index);
  }
  for (const int index : {-1, 5, 1000}) {
    window().choose(reference("Palette"), index);
  }
  EXPECT_EQ(desktop.storedDefaults(), before);
  EXPECT_EQ(takeNotifications(), 0);
}

TEST_F(ColorsPageTest, AppliesAPaletteToAllDesktops) {
  openPreferences();
  user.chooses("Palette", "Vivid");
  EXPECT_EQ(takeNotifications(), 1);
  EXPECT_EQ(store().colorConfig(uuid(0)), (SpaceColorConfig{pastel0, {0.9, 0.22, 0.21, 1.0}}));
  EXPECT_EQ(store().colorConfig(uuid(1)), (SpaceColorConfig{pastel1, {0.13, 0.59, 0.95, 1.0}}));
}

TEST_F(ColorsPageTest, AppliesPastelAlthoughItIsShownAlready) {
  openPreferences();
  user.chooses("Palette", "Pastel");
  EXPECT_EQ(takeNotifications(), 1);
  EXPECT_EQ(store().spaceColors().size(), 3U);
}

TEST_F(ColorsPageTest, LeavesTheWellsWhenAPaletteIsApplied) {
  openPreferences();
  user.chooses("Palette", "Vivid");
  EXPECT_EQ(wells().at(0).color, pastel0.color());
}

TEST_F(ColorsPageTest, HasAWellForEachOfTheFirstSixteenDesktops) {
  for (int more = 0; more < 10; ++more) {
    desktop.addDesktop();
  }
  desktop.enterFullScreen();
  desktop.addDisplay("Display 2", 7);
  openPreferences();
  ASSERT_EQ(wells().size(), 16U);
  for (std::size_t index = 0; index < 16; ++index) {
    EXPECT_EQ(wells()[index].tag, static_cast<std::int64_t>(desktop.desktopAt(index))) << index;
  }
  EXPECT_EQ(page(1).controls.back().accessibilityLabel, "Desktop 3");
}

TEST_F(ColorsPageTest, HasNoWellsWithoutDesktops) {
  desktop.overrideManagedDisplaySpaces(Value());
  openPreferences();
  EXPECT_TRUE(wells().empty());
  EXPECT_EQ(page(1).controls.size(), 5U);
}

TEST_F(ColorsPageTest, ShowsTheDefaultColourInEitherMode) {
  for (const char* mode : {"colorForeground", "colorBackground"}) {
    desktop.storedDefaults()["ColorMode"] = mode;
    relaunchPreferences();
    EXPECT_EQ(wells().at(0).color, pastel0.color()) << mode;
    EXPECT_EQ(wells().at(1).color, pastel1.color()) << mode;
  }
}

TEST_F(ColorsPageTest, ShowsTheStoredColourOfTheMode) {
  readSpaces();
  store().setSpaceColors({{uuid(1), {red, blue}}});
  openPreferences();
  EXPECT_EQ(wells().at(1).color, blue.color());
  store().setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(wells().at(1).color, blue.color());
  relaunchPreferences();
  EXPECT_EQ(wells().at(1).color, red.color());
}

TEST_F(ColorsPageTest, StoresAnEditedBackground) {
  openPreferences();
  user.picksColor("Desktop 2", red.color());
  EXPECT_EQ(store().spaceColors(), (SpaceColors{{uuid(1), {pastel1, red}}}));
  EXPECT_EQ(takeNotifications(), 1);
}

TEST_F(ColorsPageTest, StoresAnEditedForegroundAndKeepsTheRest) {
  readSpaces();
  const SpaceColors before{{uuid(0), {blue, red}}, {uuid(1), {blue, blue}}, {"gone", {red, red}}};
  store().setSpaceColors(before);
  store().setColorMode(ColorMode::ColorForeground);
  openPreferences();
  user.picksColor("Desktop 2", red.color());
  SpaceColors expected = before;
  expected[uuid(1)] = {red, blue};
  EXPECT_EQ(store().spaceColors(), expected);
  EXPECT_EQ(takeNotifications(), 1);
}

TEST_F(ColorsPageTest, EditsWhatTheModeOfTheMomentSays) {
  openPreferences();
  user.picksColor("Desktop 1", red.color());
  user.chooses("Color Mode", "Text Color");
  user.picksColor("Desktop 1", blue.color());
  EXPECT_EQ(store().colorConfig(uuid(0)), (SpaceColorConfig{blue, red}));
}

TEST_F(ColorsPageTest, TakesAColourWithoutAnSrgbFormAsItIs) {
  openPreferences();
  user.picksColor("Desktop 1", {0.25, 0.5, 0.75, 0.125, ColorSpace::Unconvertible});
  EXPECT_EQ(store().colorConfig(uuid(0)).background, (CodableColor{0.25, 0.5, 0.75, 0.125}));
}

TEST_F(ColorsPageTest, IgnoresTheWellOfADesktopThatHasGone) {
  openPreferences();
  desktop.removeDesktop(desktop.desktopAt(1));
  readSpaces();
  const Value::Dictionary before = desktop.storedDefaults();
  takeNotifications();
  user.picksColor("Desktop 2", red.color());
  EXPECT_EQ(desktop.storedDefaults(), before);
  EXPECT_EQ(takeNotifications(), 0);
}

TEST_F(ColorsPageTest, FindsTheDesktopOfAWellAmongSpacesOfAnyType) {
  openPreferences();
  std::vector<SpaceInfo> spaces = SpaceManager::shared().spaces();
  spaces[1].type = 4;
  SpaceManager::shared().update(spaces, spaces[0].spaceID);
  user.picksColor("Desktop 2", red.color());
  EXPECT_EQ(store().spaceColors().at(spaces[1].uuid), (SpaceColorConfig{pastel0, red}));
}

TEST_F(ColorsPageTest, StaysAsItWasMade) {
  openPreferences();
  desktop.addDesktop();
  readSpaces();
  SpaceManager::shared().setName("Mail", SpaceManager::shared().spaces()[0]);
  EXPECT_EQ(wells().size(), 3U);
  EXPECT_EQ(labelAt(5), "    Desktop 1");
}

TEST_F(ColorsPageTest, TakesTheGreatestIdentifierATagHolds) {
  constexpr std::uint64_t greatest = 0x7FFF'FFFF'FFFF'FFFF;
  SpaceManager::shared().update({{greatest, "A", "Display 1", 0}}, greatest);
  PreferencesWindowController::shared().showWindow();
  EXPECT_EQ(wells().at(0).tag, 0x7FFF'FFFF'FFFF'FFFF);
  user.picksColor("Desktop 1", red.color());
  EXPECT_EQ(store().colorConfig("A").background, red);
}

TEST_F(ColorsPageTest, StopsTheProgramForAnIdentifierThatNoTagHolds) {
  constexpr std::uint64_t tooGreat = 0x8000'0000'0000'0000;
  SpaceManager::shared().update({{tooGreat, "A", "Display 1", 0}}, tooGreat);
  EXPECT_DEATH(PreferencesWindowController::shared(), "a space identifier does not fit a control's tag");
}

}  // namespace
}  // namespace roomlattice::tests

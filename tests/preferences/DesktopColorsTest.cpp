#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "tests/support/SimulatedFixture.h"

#include <algorithm>
#include <string>
#include <vector>

namespace roomlattice {
namespace {

constexpr CodableColor pink{1.0, 0.71, 0.76, 1.0};
constexpr CodableColor blue{0.69, 0.83, 1.0, 1.0};
constexpr CodableColor green{0.72, 0.96, 0.72, 1.0};
constexpr CodableColor byHand{0.1, 0.2, 0.3, 0.4};

const ColorPalette& palette(const std::string& name) {
  return *std::ranges::find(PreferencesStore::palettes(), name, &ColorPalette::name);
}

SpaceInfo regular(platform::SpaceID id) {
  return {id, "uuid-" + std::to_string(id), "Main", 0};
}

class DesktopColorsTest : public tests::SimulatedFixture {
 protected:
  void setDesktops(std::vector<SpaceInfo> spaces) { SpaceManager::shared().update(std::move(spaces), 1); }

  PreferencesStore& store = PreferencesStore::shared();
};

TEST_F(DesktopColorsTest, FollowThePositionAmongRegularDesktops) {
  setDesktops({regular(1), {9, "full", "Main", 4}, regular(2), {3, "uuid-3", "Other", 0}});
  EXPECT_EQ(store.defaultColor("uuid-1"), pink);
  EXPECT_EQ(store.defaultColor("uuid-2"), blue);
  EXPECT_EQ(store.defaultColor("uuid-3"), green);
  setDesktops({regular(2), regular(1)});
  EXPECT_EQ(store.defaultColor("uuid-2"), pink);
}

TEST_F(DesktopColorsTest, GiveAnyOtherDesktopTheFirstColour) {
  setDesktops({regular(1), regular(2), {9, "full", "Main", 4}});
  EXPECT_EQ(store.defaultColor("full"), pink);
  EXPECT_EQ(store.defaultColor("unknown"), pink);
}

TEST_F(DesktopColorsTest, StartAgainAtTheSeventeenthDesktop) {
  std::vector<SpaceInfo> desktops;
  for (platform::SpaceID id = 1; id <= 18; ++id) {
    desktops.push_back(regular(id));
  }
  setDesktops(desktops);
  EXPECT_EQ(store.defaultColor("uuid-16"), (CodableColor{1.0, 0.82, 0.82, 1.0}));
  EXPECT_EQ(store.defaultColor("uuid-17"), pink);
  EXPECT_EQ(store.defaultColor("uuid-18"), blue);
}

TEST_F(DesktopColorsTest, AreTheDefaultTwiceUntilStored) {
  setDesktops({regular(1), regular(2)});
  EXPECT_EQ(store.colorConfig("uuid-2"), (SpaceColorConfig{blue, blue}));
  store.setSpaceColors({{"uuid-2", {byHand, pink}}});
  EXPECT_EQ(store.colorConfig("uuid-2"), (SpaceColorConfig{byHand, pink}));
  EXPECT_EQ(store.colorConfig("uuid-1"), (SpaceColorConfig{pink, pink}));
}

TEST_F(DesktopColorsTest, FollowTheFirstOfDesktopsThatHaveTheSameUuid) {
  setDesktops({regular(1), regular(2), {3, "uuid-1", "Other", 0}});
  EXPECT_EQ(store.defaultColor("uuid-1"), pink);
  EXPECT_EQ(store.colorConfig("uuid-1"), (SpaceColorConfig{pink, pink}));
}

TEST_F(DesktopColorsTest, AreNotWrittenByReading) {
  setDesktops({regular(1)});
  store.colorConfig("uuid-1");
  EXPECT_FALSE(desktop.storedDefaults().contains("SpaceColors"));
}

TEST_F(DesktopColorsTest, TakeAPaletteAsBackgroundsAndKeepForegrounds) {
  setDesktops({regular(1), {9, "full", "Main", 4}, regular(2)});
  store.setSpaceColors({{"uuid-1", {byHand, pink}}, {"gone", {byHand, byHand}}, {"full", {pink, pink}}});
  store.applyPalette(palette("Vivid"));
  const std::vector<CodableColor>& vivid = palette("Vivid").colors;
  EXPECT_EQ(store.spaceColors(), (SpaceColors{{"uuid-1", {byHand, vivid[0]}},
                                              {"uuid-2", {blue, vivid[1]}},
                                              {"gone", {byHand, byHand}},
                                              {"full", {pink, pink}}}));
}

TEST_F(DesktopColorsTest, TakeAPaletteAsForegroundsInForegroundMode) {
  setDesktops({regular(1), regular(2)});
  store.setColorMode(ColorMode::ColorForeground);
  store.setSpaceColors({{"uuid-2", {pink, byHand}}});
  store.applyPalette(palette("Neon"));
  const std::vector<CodableColor>& neon = palette("Neon").colors;
  EXPECT_EQ(store.spaceColors(), (SpaceColors{{"uuid-1", {neon[0], pink}}, {"uuid-2", {neon[1], byHand}}}));
}

TEST_F(DesktopColorsTest, GoRoundAShortPalette) {
  setDesktops({regular(1), regular(2), regular(3)});
  store.applyPalette({"Two", {byHand, green}});
  EXPECT_EQ(store.colorConfig("uuid-1").background, byHand);
  EXPECT_EQ(store.colorConfig("uuid-2").background, green);
  EXPECT_EQ(store.colorConfig("uuid-3").background, byHand);
}

TEST_F(DesktopColorsTest, PostOneChangeForAPaletteHoweverManyDesktopsThereAre) {
  setDesktops({regular(1), regular(2), regular(3)});
  int changes = 0;
  const auto observer =
      platform().notifications().defaultCenter().observe(PreferencesStore::didChange, [&changes] { ++changes; });
  store.applyPalette(palette("Earth"));
  EXPECT_EQ(changes, 1);
}

TEST_F(DesktopColorsTest, AreWrittenAsTheyAreByAPaletteWithoutDesktops) {
  setDesktops({regular(1)});
  store.applyPalette(palette("Earth"));
  const SpaceColors before = store.spaceColors();
  setDesktops({{9, "full", "Main", 4}});
  int changes = 0;
  const auto observer =
      platform().notifications().defaultCenter().observe(PreferencesStore::didChange, [&changes] { ++changes; });
  store.applyPalette(palette("Neon"));
  EXPECT_EQ(store.spaceColors(), before);
  EXPECT_EQ(changes, 1);
}

TEST_F(DesktopColorsTest, ReplaceBadDataWhenAPaletteIsApplied) {
  setDesktops({regular(1)});
  desktop.storedDefaults()["SpaceColors"] = platform::Value::Data{std::byte{'?'}};
  store.applyPalette(palette("B&W"));
  EXPECT_EQ(store.spaceColors(), (SpaceColors{{"uuid-1", {pink, {1.0, 1.0, 1.0, 1.0}}}}));
}

TEST_F(DesktopColorsTest, FallBackToPastelWhateverPaletteWasApplied) {
  setDesktops({regular(1)});
  store.applyPalette(palette("Neon"));
  setDesktops({regular(1), regular(2)});
  EXPECT_EQ(store.colorConfig("uuid-2"), (SpaceColorConfig{blue, blue}));
}

}  // namespace
}  // namespace roomlattice

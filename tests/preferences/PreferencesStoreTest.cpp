#include "preferences/PreferencesStore.h"

#include "support/JsonText.h"
#include "tests/support/SimulatedFixture.h"

#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

class PreferencesStoreTest : public tests::SimulatedFixture {
 protected:
  Value& stored(const char* key) { return desktop.storedDefaults()[key]; }

  void storeJson(const std::string& text) {
    const auto bytes = std::as_bytes(std::span(text));
    stored("SpaceColors") = Value::Data(bytes.begin(), bytes.end());
  }

  /// How many changes `write` posts.
  int changes(const std::function<void()>& write) {
    int count = 0;
    const auto observer =
        platform().notifications().defaultCenter().observe("PreferencesStoreDidChange", [&count] { ++count; });
    write();
    return count;
  }

  PreferencesStore& store = PreferencesStore::shared();
};

using BooleanGetter = std::function<bool(const PreferencesStore&)>;
using BooleanSetter = std::function<void(PreferencesStore&, bool)>;

struct BooleanSetting {
  const char* key;
  bool byDefault;
  BooleanGetter get;
  BooleanSetter set;
};

const std::vector<BooleanSetting> booleanSettings{
    {"ShowSignInSwipeMode", true, &PreferencesStore::showSignInSwipeMode, &PreferencesStore::setShowSignInSwipeMode},
    {"ShowSignAfterSelection", true, &PreferencesStore::showSignAfterSelection,
     &PreferencesStore::setShowSignAfterSelection},
    {"ShowSpaceNameInMenuBar", true, &PreferencesStore::showSpaceNameInMenuBar,
     &PreferencesStore::setShowSpaceNameInMenuBar},
    {"InstantMenuSwitch", false, &PreferencesStore::instantMenuSwitch, &PreferencesStore::setInstantMenuSwitch},
};

TEST_F(PreferencesStoreTest, PassesOnThatSomebodyElseHasChangedSettings) {
  EXPECT_EQ(changes([this] {
              platform().notifications().defaultCenter().post(platform::notification::defaultsDidChangeElsewhere);
            }),
            1);
}

TEST_F(PreferencesStoreTest, HasItsDefaultsOnAFreshInstallation) {
  EXPECT_EQ(store.signTextSize(), 160.0);
  EXPECT_EQ(store.signSwipeAlpha(), 0.78);
  for (const BooleanSetting& setting : booleanSettings) {
    EXPECT_EQ(setting.get(store), setting.byDefault) << setting.key;
  }
  EXPECT_EQ(store.menuBarWidthMode(), MenuBarWidthMode::FitToTitle);
  EXPECT_EQ(store.colorMode(), ColorMode::ColorBackground);
  EXPECT_TRUE(store.spaceColors().empty());
}

TEST_F(PreferencesStoreTest, ReadsBackWhatWasSet) {
  store.setSignTextSize(72.5);
  store.setSignSwipeAlpha(0.1);
  store.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength);
  store.setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(store.signTextSize(), 72.5);
  EXPECT_EQ(store.signSwipeAlpha(), 0.1);
  EXPECT_EQ(store.menuBarWidthMode(), MenuBarWidthMode::MaxTitleLength);
  EXPECT_EQ(store.colorMode(), ColorMode::ColorForeground);
  for (const BooleanSetting& setting : booleanSettings) {
    for (const bool value : {false, true}) {
      setting.set(store, value);
      EXPECT_EQ(setting.get(store), value) << setting.key;
    }
  }
}

TEST_F(PreferencesStoreTest, StoresEachSettingUnderItsKeyInItsType) {
  store.setSignTextSize(200.0);
  store.setSignSwipeAlpha(1.0);
  store.setMenuBarWidthMode(MenuBarWidthMode::FitToTitle);
  store.setColorMode(ColorMode::ColorBackground);
  EXPECT_EQ(stored("SignTextSize"), Value(200.0));
  EXPECT_EQ(stored("SignSwipeAlpha"), Value(1.0));
  EXPECT_EQ(stored("MenuBarWidthMode"), Value("fitToTitle"));
  EXPECT_EQ(stored("ColorMode"), Value("colorBackground"));
  store.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength);
  store.setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(stored("MenuBarWidthMode"), Value("maxTitleLength"));
  EXPECT_EQ(stored("ColorMode"), Value("colorForeground"));
  for (const BooleanSetting& setting : booleanSettings) {
    setting.set(store, !setting.byDefault);
    EXPECT_EQ(stored(setting.key), Value(!setting.byDefault)) << setting.key;
  }
}

TEST_F(PreferencesStoreTest, PostsOneChangeForEveryWriteEvenOfTheSameValue) {
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(changes([&] { store.setSignTextSize(160.0); }), 1);
    EXPECT_EQ(changes([&] { store.setSignSwipeAlpha(0.5); }), 1);
    EXPECT_EQ(changes([&] { store.setMenuBarWidthMode(MenuBarWidthMode::MaxTitleLength); }), 1);
    EXPECT_EQ(changes([&] { store.setColorMode(ColorMode::ColorForeground); }), 1);
    EXPECT_EQ(changes([&] { store.setSpaceColors({}); }), 1);
    for (const BooleanSetting& setting : booleanSettings) {
      EXPECT_EQ(changes([&] { setting.set(store, true); }), 1) << setting.key;
    }
  }
}

SpaceColors colorsOf(std::size_t desktops) {
  SpaceColors colors;
  for (std::size_t number = 0; number < desktops; ++number) {
    colors[std::string(500, '-') + std::to_string(number)] = {{0.25, 0.5, 0.125, 1.0}, {0.5, 0.25, 0.75, 1.0}};
  }
  return colors;
}

TEST_F(PreferencesStoreTest, KeepsColorsOfAlmostAsMuchTextAsItReads) {
  store.setSpaceColors(colorsOf(3'000));
  EXPECT_EQ(store.spaceColors(), colorsOf(3'000));
}

TEST_F(PreferencesStoreTest, ReadsColorsOfJustAsMuchTextAsItMay) {
  std::string text = toJson(encode(colorsOf(1)), JsonLayout::Compact).value();
  text.resize(PreferencesStore::maximumColorsSize, ' ');
  storeJson(text);
  EXPECT_EQ(store.spaceColors(), colorsOf(1));
  storeJson(text + " ");
  EXPECT_TRUE(store.spaceColors().empty());
}

TEST_F(PreferencesStoreTest, ForgetsColorsThatAreStoredNoLonger) {
  store.setSpaceColors(colorsOf(1));
  ASSERT_EQ(store.spaceColors(), colorsOf(1));
  desktop.storedDefaults().erase("SpaceColors");
  EXPECT_TRUE(store.spaceColors().empty());
}

TEST_F(PreferencesStoreTest, ReadsColorsAnewOfWhichItHasReadABeginning) {
  const std::string text = toJson(encode(colorsOf(2)), JsonLayout::Compact).value();
  for (const std::size_t length : {std::size_t{0}, text.size() / 2}) {
    storeJson(text.substr(0, length));
    EXPECT_TRUE(store.spaceColors().empty());
    storeJson(text);
    EXPECT_EQ(store.spaceColors(), colorsOf(2)) << length;
  }
}

TEST_F(PreferencesStoreTest, LeavesColorsAloneThatAreTooManyToRead) {
  storeJson(toJson(encode(colorsOf(4'000)), JsonLayout::Compact).value());
  const Value before = stored("SpaceColors");
  EXPECT_TRUE(store.spaceColors().empty());
  EXPECT_EQ(changes([this] { store.applyPalette(PreferencesStore::palettes().front()); }), 1);
  EXPECT_EQ(stored("SpaceColors"), before);
  EXPECT_THAT(desktop.log().texts(), ::testing::Contains(::testing::HasSubstr("SpaceColors")).Times(1));
}

TEST_F(PreferencesStoreTest, DoesNotStoreMoreColorsThanCanBeRead) {
  store.setSpaceColors(colorsOf(1));
  EXPECT_EQ(changes([this] { store.setSpaceColors(colorsOf(4'000)); }), 1);
  EXPECT_EQ(store.spaceColors(), colorsOf(1));
}

TEST_F(PreferencesStoreTest, StoresBeforeItPosts) {
  double seen = 0.0;
  const auto observer = platform().notifications().defaultCenter().observe(PreferencesStore::didChange,
                                                                           [&] { seen = store.signTextSize(); });
  store.setSignTextSize(99.0);
  EXPECT_EQ(seen, 99.0);
}

TEST_F(PreferencesStoreTest, SeesWhatOthersWrite) {
  store.setSignTextSize(100.0);
  stored("SignTextSize") = 120.0;
  EXPECT_EQ(store.signTextSize(), 120.0);
}

TEST_F(PreferencesStoreTest, ClampsNothing) {
  store.setSignTextSize(-5.0);
  store.setSignSwipeAlpha(17.0);
  EXPECT_EQ(store.signTextSize(), -5.0);
  EXPECT_EQ(store.signSwipeAlpha(), 17.0);
}

TEST_F(PreferencesStoreTest, ReadsWholeNumbersAsNumbers) {
  stored("SignTextSize") = 144;
  EXPECT_EQ(store.signTextSize(), 144.0);
}

TEST_F(PreferencesStoreTest, ReadsAnotherTypeAsTheDefaultAndLeavesIt) {
  for (const Value& wrong : {Value("200"), Value(true), Value(Value::Array{200.0}), Value(Value::Data{})}) {
    stored("SignTextSize") = wrong;
    EXPECT_EQ(store.signTextSize(), 160.0);
    EXPECT_EQ(stored("SignTextSize"), wrong);
  }
  for (const BooleanSetting& setting : booleanSettings) {
    for (const Value& wrong : {Value("false"), Value("YES"), Value(2), Value(0.5), Value(Value::Array{})}) {
      stored(setting.key) = wrong;
      EXPECT_EQ(setting.get(store), setting.byDefault) << setting.key;
    }
  }
}

TEST_F(PreferencesStoreTest, ReadsTheNumbersZeroAndOneAsBooleans) {
  for (const BooleanSetting& setting : booleanSettings) {
    stored(setting.key) = 0;
    EXPECT_FALSE(setting.get(store)) << setting.key;
    stored(setting.key) = 1.0;
    EXPECT_TRUE(setting.get(store)) << setting.key;
  }
}

TEST_F(PreferencesStoreTest, ComparesRawValuesToTheLetter) {
  for (const Value& other : {Value("ColorForeground"), Value("colorforeground"), Value(" colorForeground"), Value(""),
                             Value(0), Value("colorBackground")}) {
    stored("ColorMode") = other;
    EXPECT_EQ(store.colorMode(), ColorMode::ColorBackground);
  }
  for (const Value& other : {Value("MaxTitleLength"), Value("maxTitleLength "), Value(1), Value("fitToTitle")}) {
    stored("MenuBarWidthMode") = other;
    EXPECT_EQ(store.menuBarWidthMode(), MenuBarWidthMode::FitToTitle);
  }
}

TEST_F(PreferencesStoreTest, StoresColoursAsAJsonDocument) {
  store.setSpaceColors({{"A", {{0.1, 0.2, 0.3, 1.0}, {0.4, 0.5, 0.6, 0.5}}}});
  const Value::Data* data = stored("SpaceColors").asData();
  ASSERT_NE(data, nullptr);
  const std::string text(reinterpret_cast<const char*>(data->data()), data->size());
  EXPECT_EQ(text.find_first_of(" \n\t"), std::string::npos) << text;
  const auto document = platform().json().decode(*data);
  ASSERT_TRUE(document);
  EXPECT_EQ(
      *document,
      Value(Value::Dictionary{
          {"A", Value::Dictionary{
                    {"foreground", Value::Dictionary{{"red", 0.1}, {"green", 0.2}, {"blue", 0.3}, {"alpha", 1.0}}},
                    {"background", Value::Dictionary{{"red", 0.4}, {"green", 0.5}, {"blue", 0.6}, {"alpha", 0.5}}}}}}));
}

TEST_F(PreferencesStoreTest, ReadsColoursBackFieldForField) {
  const SpaceColors colors{{"A", {{0.1, 0.2, 0.3, 1.0}, {0.4, 0.5, 0.6, 0.5}}},
                           {"\u00E9-\U0001F600", {{1.0 / 3.0, 0.0, 1e-300, 1.0}, {1.0, 1.0, 1.0, 0.0}}}};
  store.setSpaceColors(colors);
  EXPECT_EQ(store.spaceColors(), colors);
}

TEST_F(PreferencesStoreTest, ReadsColoursThatAnotherEncoderWrote) {
  storeJson(R"({ "A" : {"background":{"blue":0,"red":1,"green":0.5,"alpha":1},
                        "foreground":{"alpha":1e0,"red":2.5e-1,"green":0.5,"blue":0.75}} })");
  EXPECT_EQ(store.spaceColors(), (SpaceColors{{"A", {{0.25, 0.5, 0.75, 1.0}, {1.0, 0.5, 0.0, 1.0}}}}));
}

TEST_F(PreferencesStoreTest, ReadsUndecodableColoursAsNoneAndLeavesThem) {
  const std::string good = R"({"red":1,"green":1,"blue":1,"alpha":1})";
  const std::string pair = R"({"foreground":)" + good + R"(,"background":)" + good + "}";
  for (const std::string& text :
       {std::string(), std::string("not json"), std::string("[]"), std::string("{"),
        R"({"A":)" + pair + R"(,"B":{"foreground":)" + good + "}}",
        R"({"A":)" + pair + R"(,"B":{"foreground":)" + good + R"(,"background":{"red":1,"green":1,"blue":1}}})",
        R"({"A":{"foreground":)" + good + R"(,"background":{"red":"1","green":1,"blue":1,"alpha":1}}})",
        R"({"A":)" + pair + "} trailing"}) {
    storeJson(text);
    const Value before = stored("SpaceColors");
    EXPECT_TRUE(store.spaceColors().empty()) << text;
    EXPECT_EQ(stored("SpaceColors"), before);
  }
  stored("SpaceColors") = "{}";
  EXPECT_TRUE(store.spaceColors().empty());
}

TEST_F(PreferencesStoreTest, WritesNothingWhereColoursHaveNoJsonFormButPosts) {
  const SpaceColors before{{"A", {{0.1, 0.2, 0.3, 1.0}, {0.1, 0.2, 0.3, 1.0}}}};
  store.setSpaceColors(before);
  SpaceColors broken = before;
  broken["B"].foreground.red = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(changes([&] { store.setSpaceColors(broken); }), 1);
  EXPECT_EQ(store.spaceColors(), before);
}

}  // namespace
}  // namespace roomlattice

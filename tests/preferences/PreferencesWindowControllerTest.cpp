#include "preferences/PreferencesWindowController.h"

#include "tests/preferences/PreferencesFixture.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CheckBoxControl;
using platform::CheckState;
using platform::LabelControl;
using platform::PopUpControl;
using platform::Rect;
using platform::SliderControl;
using platform::Value;

class PreferencesWindowControllerTest : public PreferencesFixture {};

/// The check boxes of the two form pages, with their settings.
struct CheckBoxCase {
  const char* title;
  const char* key;
  bool initially;
};

const std::vector<CheckBoxCase> checkBoxes{
    {"Show desktop label during swipe transitions", "ShowSignInSwipeMode", true},
    {"Show desktop label after selection", "ShowSignAfterSelection", true},
    {"Show desktop name in menu bar", "ShowSpaceNameInMenuBar", true},
    {"Instant switch (no swipe animation)", "InstantMenuSwitch", false},
};

TEST_F(PreferencesWindowControllerTest, HasItsTitleAndSizes) {
  openPreferences();
  EXPECT_EQ(window().model().title, "Plinkhaven Preferences");
  EXPECT_EQ(window().model().contentSize, (platform::Size{520.0, 480.0}));
  EXPECT_EQ(window().model().tabFrame, (Rect{{12.0, 12.0}, {496.0, 456.0}}));
}

TEST_F(PreferencesWindowControllerTest, HasFourPagesOfOneSize) {
  openPreferences();
  std::vector<std::string> pages;
  for (const platform::TabPage& page : window().model().pages) {
    pages.push_back(page.identifier + ": " + page.label);
    EXPECT_EQ(page.size, (platform::Size{490.0, 400.0})) << page.label;
  }
  EXPECT_EQ(pages, (std::vector<std::string>{"sign: Label", "colors: Colors", "menubar: Menu Bar",
                                             "diagnostics: Diagnostics"}));
}

TEST_F(PreferencesWindowControllerTest, IsMadeOnFirstUseAndShownOnRequest) {
  EXPECT_EQ(desktop.tabbedWindow(), nullptr);
  PreferencesWindowController& controller = PreferencesWindowController::shared();
  ASSERT_NE(desktop.tabbedWindow(), nullptr);
  EXPECT_FALSE(window().isVisible());
  controller.showWindow();
  EXPECT_TRUE(window().isVisible());
}

TEST_F(PreferencesWindowControllerTest, KeepsItsControlsAsTheUserLeftThem) {
  openPreferences();
  user.slides("Label Text Size", 200.0);
  user.chooses("Menu Bar Width", "Fixed Width");
  user.closesWindow();
  store().setSignTextSize(80.0);
  PreferencesWindowController::shared().showWindow();
  EXPECT_EQ(desktop.windows().tabbed().size(), 1U);
  EXPECT_EQ(control<SliderControl>("Label Text Size").value, 200.0);
  EXPECT_EQ(control<PopUpControl>("Menu Bar Width").selectedIndex, 1);
}

TEST_F(PreferencesWindowControllerTest, WritesNothingByBeingOpened) {
  readSpaces();
  const Value::Dictionary before = desktop.storedDefaults();
  takeNotifications();
  PreferencesWindowController::shared().showWindow();
  EXPECT_EQ(desktop.storedDefaults(), before);
  EXPECT_EQ(takeNotifications(), 0);
}

TEST_F(PreferencesWindowControllerTest, LaysTheLabelPageOut) {
  openPreferences();
  std::vector<Rect> frames;
  for (const platform::PlacedControl& control : page(0).controls) {
    frames.push_back(control.frame);
  }
  EXPECT_EQ(frames, (std::vector<Rect>{{{20.0, 357.875}, {160.0, 16.25}},
                                       {{192.0, 356.0}, {240.0, 20.0}},
                                       {{20.0, 317.875}, {160.0, 16.25}},
                                       {{192.0, 316.0}, {240.0, 20.0}},
                                       {{20.0, 277.75}, {299.5, 18.25}},
                                       {{20.0, 239.5}, {241.0, 18.25}}}));
}

TEST_F(PreferencesWindowControllerTest, LaysTheMenuBarPageOut) {
  openPreferences();
  std::vector<Rect> frames;
  for (const platform::PlacedControl& control : page(2).controls) {
    frames.push_back(control.frame);
  }
  EXPECT_EQ(frames, (std::vector<Rect>{{{20.0, 355.75}, {160.0, 16.25}},
                                       {{192.0, 351.75}, {180.0, 24.25}},
                                       {{20.0, 313.5}, {208.5, 18.25}},
                                       {{20.0, 275.25}, {247.5, 18.25}}}));
}

TEST_F(PreferencesWindowControllerTest, LabelsItsRows) {
  openPreferences();
  EXPECT_EQ(std::get<LabelControl>(page(0).controls.at(0).control).text, "Label Text Size:");
  EXPECT_EQ(std::get<LabelControl>(page(0).controls.at(2).control).text, "Label Opacity During Swipe:");
  EXPECT_EQ(std::get<LabelControl>(page(2).controls.at(0).control).text, "Menu Bar Width:");
}

TEST_F(PreferencesWindowControllerTest, OpensWithTheDefaults) {
  openPreferences();
  EXPECT_EQ(control<SliderControl>("Label Text Size").value, 160.0);
  EXPECT_EQ(control<SliderControl>("Label Opacity During Swipe").value, 0.78);
  EXPECT_EQ(control<PopUpControl>("Menu Bar Width").selectedIndex, 0);
  for (const CheckBoxCase& box : checkBoxes) {
    EXPECT_EQ(control<CheckBoxControl>(box.title).state, box.initially ? CheckState::On : CheckState::Off) << box.title;
  }
}

TEST_F(PreferencesWindowControllerTest, OpensWithWhatIsStored) {
  desktop.storedDefaults()["SignTextSize"] = 90;
  desktop.storedDefaults()["SignSwipeAlpha"] = 0.25;
  desktop.storedDefaults()["MenuBarWidthMode"] = "maxTitleLength";
  for (const CheckBoxCase& box : checkBoxes) {
    desktop.storedDefaults()[box.key] = !box.initially;
  }
  openPreferences();
  EXPECT_EQ(control<SliderControl>("Label Text Size").value, 90.0);
  EXPECT_EQ(control<SliderControl>("Label Opacity During Swipe").value, 0.25);
  EXPECT_EQ(control<PopUpControl>("Menu Bar Width").selectedIndex, 1);
  for (const CheckBoxCase& box : checkBoxes) {
    EXPECT_EQ(control<CheckBoxControl>(box.title).state, box.initially ? CheckState::Off : CheckState::On) << box.title;
  }
}

TEST_F(PreferencesWindowControllerTest, OpensOnFitToTitleUnlessTheFixedWidthIsStored) {
  for (const Value& other : {Value("fitToTitle"), Value("MaxTitleLength"), Value(""), Value(1)}) {
    desktop.storedDefaults()["MenuBarWidthMode"] = other;
    relaunchPreferences();
    EXPECT_EQ(control<PopUpControl>("Menu Bar Width").selectedIndex, 0);
  }
}

TEST_F(PreferencesWindowControllerTest, BoundsItsSliders) {
  openPreferences();
  EXPECT_EQ(control<SliderControl>("Label Text Size").minimum, 60.0);
  EXPECT_EQ(control<SliderControl>("Label Text Size").maximum, 300.0);
  EXPECT_EQ(control<SliderControl>("Label Opacity During Swipe").minimum, 0.1);
  EXPECT_EQ(control<SliderControl>("Label Opacity During Swipe").maximum, 1.0);
}

TEST_F(PreferencesWindowControllerTest, StoresEachMoveOfASlider) {
  openPreferences();
  for (const double size : {60.0, 161.5, 300.0}) {
    user.slides("Label Text Size", size);
    EXPECT_EQ(stored("SignTextSize"), Value(size));
    EXPECT_EQ(takeNotifications(), 1);
  }
  user.slides("Label Opacity During Swipe", 0.5);
  EXPECT_EQ(stored("SignSwipeAlpha"), Value(0.5));
  EXPECT_EQ(takeNotifications(), 1);
}

TEST_F(PreferencesWindowControllerTest, StoresEachClickOnACheckBox) {
  openPreferences();
  for (const CheckBoxCase& box : checkBoxes) {
    for (const bool expected : {!box.initially, box.initially}) {
      user.clicksCheckBox(box.title);
      EXPECT_EQ(stored(box.key), Value(expected)) << box.title;
      EXPECT_EQ(takeNotifications(), 1) << box.title;
    }
  }
}

TEST_F(PreferencesWindowControllerTest, TakesAMixedCheckBoxForOff) {
  openPreferences();
  for (const CheckBoxCase& box : checkBoxes) {
    window().check(reference(box.title), CheckState::Mixed);
    EXPECT_EQ(stored(box.key), Value(false)) << box.title;
    EXPECT_EQ(takeNotifications(), 1) << box.title;
  }
}

TEST_F(PreferencesWindowControllerTest, OffersTwoWidths) {
  openPreferences();
  EXPECT_EQ(control<PopUpControl>("Menu Bar Width").items, (std::vector<std::string>{"Fit to Title", "Fixed Width"}));
}

TEST_F(PreferencesWindowControllerTest, StoresTheWidth) {
  openPreferences();
  user.chooses("Menu Bar Width", "Fixed Width");
  EXPECT_EQ(stored("MenuBarWidthMode"), Value("maxTitleLength"));
  EXPECT_EQ(takeNotifications(), 1);
  user.chooses("Menu Bar Width", "Fit to Title");
  EXPECT_EQ(stored("MenuBarWidthMode"), Value("fitToTitle"));
  EXPECT_EQ(takeNotifications(), 1);
}

TEST_F(PreferencesWindowControllerTest, TakesEveryIndexButTheFirstForTheFixedWidth) {
  openPreferences();
  for (const int index : {-1, 2, 1000}) {
    user.chooses("Menu Bar Width", "Fit to Title");
    window().choose(reference("Menu Bar Width"), index);
    EXPECT_EQ(stored("MenuBarWidthMode"), Value("maxTitleLength")) << index;
    EXPECT_EQ(takeNotifications(), 2);
  }
}

TEST_F(PreferencesWindowControllerTest, AnnouncesWhatIsChosenAgain) {
  openPreferences();
  user.chooses("Menu Bar Width", "Fit to Title");
  user.slides("Label Text Size", 160.0);
  EXPECT_EQ(takeNotifications(), 2);
}

}  // namespace
}  // namespace roomlattice::tests

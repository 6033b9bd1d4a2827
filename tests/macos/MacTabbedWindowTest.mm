#import "platform/macos/MacTabbedWindow.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include <string>

namespace roomlattice::platform::macos {
namespace {

NSWindow* findWindow(NSString* title) {
  for (NSWindow* window in [NSApp windows]) {
    if ([[window title] isEqualToString:title]) {
      return window;
    }
  }
  return nil;
}

class MacTabbedWindowTest : public testing::Test {
 protected:
  MacTabbedWindowTest() {
    TabPage form{.identifier = "sign", .label = "Label", .size = {490.0, 400.0}};
    form.controls = {
        {{{20.0, 350.0}, {160.0, 20.0}}, LabelControl{.text = "Label Text Size:"}},
        {{{192.0, 350.0}, {240.0, 20.0}},
         SliderControl{.value = 160.0,
                       .minimum = 60.0,
                       .maximum = 300.0,
                       .action = [this](double value) { heard_ = "slider " + std::to_string(value); }},
         "Label Text Size"},
        {{{20.0, 310.0}, {300.0, 20.0}},
         CheckBoxControl{.title = "Show",
                         .state = CheckState::On,
                         .action = [this](CheckState state) { heard_ = state == CheckState::On ? "on" : "off"; }}},
    };
    TabPage rest{.identifier = "colors", .label = "Colors", .size = {490.0, 400.0}};
    rest.controls = {
        {{{20.0, 350.0}, {180.0, 26.0}},
         PopUpControl{.items = {"Text Color", "Background Color"},
                      .selectedIndex = 1,
                      .action = [this](int index) { heard_ = "item " + std::to_string(index); }}},
        {{{20.0, 300.0}, {44.0, 24.0}},
         ColorWellControl{.color = {0.1, 0.2, 0.3},
                          .tag = 7,
                          .action =
                              [this](std::int64_t tag, Color color) {
                                heard_ = "well " + std::to_string(tag);
                                color_ = color;
                              }}},
        {{{20.0, 260.0}, {200.0, 26.0}},
         PushButtonControl{.title = "Copy Command", .action = [this] { heard_ = "pushed"; }}},
        {{{20.0, 220.0}, {440.0, 22.0}}, SelectableTextControl{.text = "log show"}},
    };
    window_.emplace(TabbedWindowModel{.title = "Plinkhaven Preferences",
                                      .contentSize = {520.0, 480.0},
                                      .tabFrame = {{12.0, 12.0}, {496.0, 456.0}},
                                      .pages = {form, rest}});
  }

  NSWindow* native() { return findWindow(@"Plinkhaven Preferences"); }
  NSTabView* tabs() { return [[[native() contentView] subviews] objectAtIndex:0]; }
  template <class Control>
  Control* control(NSInteger page, NSUInteger index) {
    return [[[[tabs() tabViewItemAtIndex:page] view] subviews] objectAtIndex:index];
  }

  std::string heard_;
  Color color_;
  std::optional<MacTabbedWindow> window_;
};

TEST_F(MacTabbedWindowTest, IsTitledClosableAndCentred) {
  const NSUInteger style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;
  EXPECT_EQ([native() styleMask], style);
  EXPECT_EQ(toSize([[native() contentView] frame].size), (Size{520.0, 480.0}));
  EXPECT_FALSE([native() isReleasedWhenClosed]);
  EXPECT_FALSE([native() isVisible]);
  EXPECT_NEAR(NSMidX([native() frame]), NSMidX([[NSScreen mainScreen] frame]), 1.0);
}

TEST_F(MacTabbedWindowTest, HasATabForEachPage) {
  EXPECT_EQ(toRect([tabs() frame]), (Rect{{12.0, 12.0}, {496.0, 456.0}}));
  const NSUInteger sizable = NSViewWidthSizable | NSViewHeightSizable;
  EXPECT_EQ([tabs() autoresizingMask], sizable);
  ASSERT_EQ([tabs() numberOfTabViewItems], 2);
  EXPECT_EQ(toString([[tabs() tabViewItemAtIndex:1] label]), "Colors");
  EXPECT_TRUE([[[tabs() tabViewItemAtIndex:1] identifier] isEqual:@"colors"]);
}

TEST_F(MacTabbedWindowTest, HidesWhenClosedAndComesBack) {
  window_->show();
  EXPECT_TRUE([native() isVisible]);
  [native() performClose:nil];
  EXPECT_FALSE([native() isVisible]);
  window_->show();
  EXPECT_TRUE([native() isVisible]);
  [native() orderOut:nil];
}

TEST_F(MacTabbedWindowTest, KeepsDistancesFromThePagesTop) {
  NSTextField* label = control<NSTextField>(0, 0);
  const CGFloat page = NSHeight([[label superview] frame]);
  EXPECT_NEAR(page - NSMaxY([label frame]), 400.0 - 370.0, 0.001);
}

TEST_F(MacTabbedWindowTest, TellsTheSlidersValue) {
  NSSlider* slider = control<NSSlider>(0, 1);
  EXPECT_EQ([slider doubleValue], 160.0);
  EXPECT_EQ([slider minValue], 60.0);
  EXPECT_EQ([slider maxValue], 300.0);
  EXPECT_EQ(toString([slider accessibilityLabel]), "Label Text Size");
  [slider setDoubleValue:200.5];
  [slider sendAction:[slider action] to:[slider target]];
  EXPECT_EQ(heard_, "slider 200.500000");
}

TEST_F(MacTabbedWindowTest, TellsTheCheckBoxesState) {
  NSButton* box = control<NSButton>(0, 2);
  EXPECT_EQ(static_cast<int>([box state]), 1);
  [box performClick:nil];
  EXPECT_EQ(heard_, "off");
}

TEST_F(MacTabbedWindowTest, TellsTheChosenItem) {
  NSPopUpButton* popUp = control<NSPopUpButton>(1, 0);
  EXPECT_FALSE([popUp pullsDown]);
  EXPECT_EQ([popUp indexOfSelectedItem], 1);
  [popUp selectItemAtIndex:0];
  [popUp sendAction:[popUp action] to:[popUp target]];
  EXPECT_EQ(heard_, "item 0");
}

TEST_F(MacTabbedWindowTest, TellsTheWellsColourInSRGB) {
  NSColorWell* well = control<NSColorWell>(1, 1);
  EXPECT_EQ([well tag], 7);
  EXPECT_NEAR(toColor([well color]).blue, 0.3, 1e-6);
  [well setColor:[NSColor colorWithCalibratedWhite:0.5 alpha:0.25]];
  [well sendAction:[well action] to:[well target]];
  EXPECT_EQ(heard_, "well 7");
  EXPECT_EQ(color_.space, ColorSpace::SRGB);
  EXPECT_NEAR(color_.green, 0.5, 1e-6);
  EXPECT_NEAR(color_.alpha, 0.25, 1e-6);
}

TEST_F(MacTabbedWindowTest, EnablesAndDisablesButtons) {
  NSButton* button = control<NSButton>(1, 2);
  window_->setEnabled({1, 2}, false);
  [button performClick:nil];
  EXPECT_EQ(heard_, "");
  window_->setEnabled({1, 2}, true);
  [button performClick:nil];
  EXPECT_EQ(heard_, "pushed");
}

TEST_F(MacTabbedWindowTest, ReplacesALabelsText) {
  window_->setText({0, 0}, "Gathering log\u2026");
  EXPECT_EQ(toString([control<NSTextField>(0, 0) stringValue]), "Gathering log\u2026");
}

TEST_F(MacTabbedWindowTest, HasTextToSelectButNotToEdit) {
  NSTextField* field = control<NSTextField>(1, 3);
  EXPECT_FALSE([field isEditable]);
  EXPECT_TRUE([field isSelectable]);
  EXPECT_EQ([field bezelStyle], NSTextFieldRoundedBezel);
}

TEST_F(MacTabbedWindowTest, HasTextToCopyWithoutAMainMenu) {
  [tabs() selectTabViewItemAtIndex:1];
  NSTextField* field = control<NSTextField>(1, 3);
  [field selectText:nil];
  ASSERT_NE([field currentEditor], nil);
  [[NSPasteboard generalPasteboard] declareTypes:[NSArray arrayWithObject:NSPasteboardTypeString] owner:nil];
  EXPECT_TRUE([native() performKeyEquivalent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                                                    location:NSZeroPoint
                                                               modifierFlags:NSEventModifierFlagCommand
                                                                   timestamp:0
                                                                windowNumber:[native() windowNumber]
                                                                     context:nil
                                                                  characters:@"c"
                                                 charactersIgnoringModifiers:@"c"
                                                                   isARepeat:NO
                                                                     keyCode:8]]);
  EXPECT_EQ(toString([[NSPasteboard generalPasteboard] stringForType:NSPasteboardTypeString]), "log show");
}

TEST_F(MacTabbedWindowTest, GoesWithItsWindow) {
  window_.reset();
  EXPECT_EQ(native(), nil);
}

}  // namespace
}  // namespace roomlattice::platform::macos

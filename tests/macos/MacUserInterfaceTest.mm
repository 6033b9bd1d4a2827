#import "platform/macos/MacUserInterface.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"

#include <gtest/gtest.h>

namespace roomlattice::platform::macos {
namespace {

TEST(MacUserInterfaceTest, GivesTheAccentColourInSRGB) {
  EXPECT_EQ(MacUserInterface().accentColor(), toColor([NSColor controlAccentColor]));
  EXPECT_EQ(MacUserInterface().accentColor().space, ColorSpace::SRGB);
}

TEST(MacUserInterfaceTest, MarksColoursWithoutComponents) {
  NSImage* image = [[[NSImage alloc] initWithSize:NSMakeSize(2, 2)] autorelease];
  EXPECT_EQ(toColor([NSColor colorWithPatternImage:image]).space, ColorSpace::Unconvertible);
}

TEST(MacUserInterfaceTest, MeasuresLines) {
  const MacUserInterface userInterface;
  const Font font{.size = 160.0, .weight = FontWeight::Heavy};
  const Size line = userInterface.measure("Mail", font);
  EXPECT_GT(userInterface.measure("Mail and more", font).width, line.width);
  EXPECT_EQ(userInterface.measure("", font), (Size{0.0, line.height}));
  EXPECT_GT(line.height, 120.0);
}

TEST(MacUserInterfaceTest, MakesHeavyTextWiderThanRegular) {
  EXPECT_GT(textSize("Mail", {.size = 40.0, .weight = FontWeight::Heavy}).width,
            textSize("Mail", {.size = 40.0}).width);
}

TEST(MacUserInterfaceTest, GivesAnEmptyLabelTheHeightOfALine) {
  const MacUserInterface userInterface;
  EXPECT_EQ(userInterface.intrinsicSize(LabelControl{}).height,
            userInterface.intrinsicSize(LabelControl{.text = "Copied"}).height);
}

TEST(MacUserInterfaceTest, BreaksALabelThatWraps) {
  const MacUserInterface userInterface;
  LabelControl label{.text = "If desktop labels misbehave, send a diagnostic log so the issue can be tracked down."};
  const Size line = userInterface.intrinsicSize(label);
  label.wrapWidth = 160.0;
  const Size wrapped = userInterface.intrinsicSize(label);
  EXPECT_LE(wrapped.width, 160.0);
  EXPECT_GT(wrapped.height, 2 * line.height);
}

TEST(MacUserInterfaceTest, GivesEveryControlASize) {
  const MacUserInterface userInterface;
  const Control controls[] = {LabelControl{.text = "x"},         SliderControl{},    CheckBoxControl{.title = "x"},
                              PopUpControl{.items = {"x"}},      ColorWellControl{}, PushButtonControl{.title = "x"},
                              SelectableTextControl{.text = "x"}};
  for (const Control& control : controls) {
    const Size size = userInterface.intrinsicSize(control);
    EXPECT_GT(size.width, 0.0) << control.index();
    EXPECT_GT(size.height, 5.0) << control.index();
    EXPECT_LT(size.height, 60.0) << control.index();
  }
}

}  // namespace
}  // namespace roomlattice::platform::macos

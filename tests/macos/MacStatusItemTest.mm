#import "platform/macos/MacStatusItem.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

NSStatusItem* native() {
  return [gnustep::statusItems() lastObject];
}

TEST(MacStatusItemTest, LeavesTheBarWhenItGoes) {
  {
    const MacStatusItem item{VariableLength{}};
    EXPECT_EQ([gnustep::statusItems() count], 1U);
  }
  EXPECT_EQ([gnustep::statusItems() count], 0U);
}

TEST(MacStatusItemTest, KnowsEveryLength) {
  MacStatusItem item{VariableLength{}};
  EXPECT_EQ([native() length], -1.0);
  item.setLength(SquareLength{});
  EXPECT_EQ([native() length], -2.0);
  item.setLength(FixedLength{140.0});
  EXPECT_EQ([native() length], 140.0);
}

TEST(MacStatusItemTest, ShowsAColouredTitleOnItsBackground) {
  MacStatusItem item{VariableLength{}};
  const Color pink{1.0, 0.71, 0.76};
  item.button()->setContent(
      {.title = {.text = " Mail ", .color = Color::black()}, .background = pink, .cornerRadius = 3.0});
  NSStatusBarButton* button = [native() button];
  NSAttributedString* title = [button attributedTitle];
  EXPECT_EQ(toString([title string]), " Mail ");
  NSRange range;
  NSDictionary* attributes = [title attributesAtIndex:0 effectiveRange:&range];
  EXPECT_EQ(toColor([attributes objectForKey:NSForegroundColorAttributeName]), Color::black());
  EXPECT_TRUE([[attributes objectForKey:NSFontAttributeName] isEqual:[NSFont menuBarFontOfSize:0]]);
  EXPECT_EQ(range.length, 6U);
  EXPECT_EQ([button contentTintColor], nil);
  EXPECT_TRUE([button wantsLayer]);
  const Color background = toColor((NSColor*)[[button layer] backgroundColor]);
  EXPECT_NEAR(background.green, 0.71, 1e-6);
  EXPECT_EQ([[button layer] cornerRadius], 3.0);
}

TEST(MacStatusItemTest, TakesATintOffTheButton) {
  MacStatusItem item{VariableLength{}};
  [[native() button] setContentTintColor:[NSColor redColor]];
  item.button()->setContent({.title = {.text = "Desktops"}});
  EXPECT_EQ([[native() button] contentTintColor], nil);
}

TEST(MacStatusItemTest, ShowsATemplateIconInPlaceOfTheTitle) {
  MacStatusItem item{VariableLength{}};
  item.button()->setContent({.title = {.text = " Mail ", .color = Color::black()}, .background = Color::white()});
  item.button()->setContent({.image = Image{.size = {16.0, 16.0}, .isTemplate = true}});
  NSStatusBarButton* button = [native() button];
  EXPECT_EQ([[button attributedTitle] length], 0U);
  EXPECT_TRUE([[button image] isTemplate]);
  EXPECT_EQ([[button image] size].width, 16.0);
  EXPECT_EQ([[button layer] backgroundColor], nullptr);
}

TEST(MacStatusItemTest, ShowsAPlainTitle) {
  MacStatusItem item{VariableLength{}};
  item.button()->setContent({.title = {.text = "Desktops"}});
  EXPECT_EQ(toString([[native() button] title]), "Desktops");
  EXPECT_EQ([[native() button] image], nil);
}

TEST(MacStatusItemTest, ShowsATitleOfSeveralLinesAsOne) {
  MacStatusItem item{VariableLength{}};
  item.button()->setContent({.title = {.text = " Work\nMail "}});
  EXPECT_EQ(toString([[native() button] title]), " Work Mail ");
  item.button()->setContent({.title = {.text = " Work\nMail ", .color = Color::black()}});
  EXPECT_EQ(toString([[[native() button] attributedTitle] string]), " Work Mail ");
}

TEST(MacStatusItemTest, HasNoButtonWhereTheBarGivesNone) {
  MacStatusItem item{VariableLength{}};
  gnustep::withholdButtons(true);
  EXPECT_EQ(item.button(), nullptr);
  gnustep::withholdButtons(false);
  EXPECT_NE(item.button(), nullptr);
}

TEST(MacStatusItemTest, RasterisesImages) {
  const Shape square{.bounds = {{0.0, 0.0}, {8.0, 8.0}}, .color = Color::black()};
  MacStatusItem item{VariableLength{}};
  item.button()->setContent({.image = Image{.size = {16.0, 16.0}, .shapes = {square}}});
  NSImage* image = [[native() button] image];
  [image lockFocus];
  NSBitmapImageRep* bitmap = [[[NSBitmapImageRep alloc] initWithFocusedViewRect:NSMakeRect(0, 0, 16, 16)] autorelease];
  [image unlockFocus];
  EXPECT_GT(toColor([bitmap colorAtX:4 y:12]).alpha, 0.9);
  EXPECT_LT(toColor([bitmap colorAtX:12 y:4]).alpha, 0.1);
}

}  // namespace
}  // namespace roomlattice::platform::macos

#import "platform/macos/MacWindow.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/macos/MainLoop.h"
#include "tests/macos/NativeWindow.h"
#include "tests/macos/PlateView.h"
#include "tests/macos/supplement/Animation.h"
#include "tests/macos/supplement/Views.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;
using gnustep::AnimationRecord;
using tests::nativeWindow;
using tests::PlateView;
using tests::plateWindowFrame;
using tests::runUntil;

TEST(MacWindowOnGnustepTest, ShowsItsViewOnALayer) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSView* view = [nativeWindow(window) contentView];
  ASSERT_TRUE([view wantsLayer]);
  EXPECT_EQ(toColor((NSColor*)[[view layer] backgroundColor]), (Color{0.0, 0.0, 0.0, 0.78}));
  EXPECT_EQ([[view layer] cornerRadius], 40.0);
  NSTextField* label = [[view subviews] objectAtIndex:0];
  EXPECT_EQ(toString([label stringValue]), "Mail");
  EXPECT_FALSE([label isEditable]);
  EXPECT_FALSE([label isSelectable]);
  EXPECT_EQ([label maximumNumberOfLines], 1);
  EXPECT_EQ([label alignment], NSTextAlignmentCenter);
  EXPECT_EQ([[label cell] lineBreakMode], NSLineBreakByTruncatingTail);
  EXPECT_EQ(toColor([label textColor]), Color::white());
  EXPECT_TRUE([[label font] isEqual:[NSFont boldSystemFontOfSize:30.0]]);
}

TEST(MacWindowOnGnustepTest, HasItsShadowFollowItsSize) {
  MacWindow window({.frame = plateWindowFrame});
  const int before = gnustep::shadowChanges(nativeWindow(window));
  window.setFrame({plateWindowFrame.origin, {200.0, 60.0}});
  EXPECT_GT(gnustep::shadowChanges(nativeWindow(window)), before);
}

// With pixels of several points, as GNUstep's own windows stand on whole points.
TEST(MacWindowOnGnustepTest, StandsOnWholePixels) {
  gnustep::setBackingScale(0.5);
  const Rect between{{200.6, 300.1}, {400.9, 120.3}};
  const Rect onPixels{{200.0, 300.0}, {402.0, 120.0}};
  MacWindow window({.frame = between});
  EXPECT_EQ(window.frame(), onPixels);
  window.setFrame(plateWindowFrame);
  window.setFrame(between);
  EXPECT_EQ(window.frame(), onPixels);
  gnustep::setBackingScale(std::nullopt);
}

TEST(MacWindowOnGnustepTest, ShowsItsPartsOnWholePixelsWithAllTheirRoom) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSTextField* label = [[[nativeWindow(window) contentView] subviews] objectAtIndex:0];
  const NSRect exact = [label frame];
  // As when the window comes to a screen with other pixels.
  gnustep::setBackingScale(1.0 / 16.0);
  [[nativeWindow(window) contentView] viewDidChangeBackingProperties];
  gnustep::setBackingScale(std::nullopt);
  const NSRect frame = [label frame];
  EXPECT_TRUE(NSContainsRect(frame, exact));
  for (const double edge : {NSMinX(frame), NSMinY(frame), NSMaxX(frame), NSMaxY(frame)}) {
    EXPECT_EQ(std::fmod(edge, 16.0), 0.0);
  }
}

TEST(MacWindowOnGnustepTest, AnimatesItsAlphaInAGroupOfTheGivenDuration) {
  gnustep::takeAnimations();
  MacWindow window({.frame = plateWindowFrame, .alpha = 1.0});
  bool completed = false;
  window.animateAlpha(0.0, 350ms, [&] { completed = true; });
  EXPECT_FALSE(completed);
  EXPECT_EQ(window.alpha(), 1.0);
  EXPECT_TRUE(runUntil([&] { return completed; }));
  EXPECT_EQ(window.alpha(), 0.0);
  EXPECT_THAT(gnustep::takeAnimations(),
              testing::ElementsAre(AnimationRecord{.duration = 0.35, .allowsImplicitAnimation = true, .alpha = 0.0}));
}

TEST(MacWindowOnGnustepTest, TakesADurationOfZeroAsAtOnceWithoutImplicitAnimation) {
  gnustep::takeAnimations();
  MacWindow window({.frame = plateWindowFrame});
  bool completed = false;
  window.animateAlpha(0.78, 0ms, [&] { completed = true; });
  EXPECT_EQ(window.alpha(), 0.78);
  EXPECT_FALSE(completed);
  EXPECT_TRUE(runUntil([&] { return completed; }));
  EXPECT_THAT(gnustep::takeAnimations(),
              testing::ElementsAre(AnimationRecord{.duration = 0.0, .allowsImplicitAnimation = false, .alpha = 0.78}));
}

}  // namespace
}  // namespace roomlattice::platform::macos

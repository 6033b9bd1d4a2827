#import "platform/macos/MacWindow.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/Animation.h"
#include "tests/macos/supplement/Views.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;
using gnustep::AnimationRecord;
using gnustep::runUntil;

constexpr Rect windowFrame{{200.0, 300.0}, {400.0, 120.0}};

class PlateView final : public View {
 public:
  PlateView() { setFrame({{}, windowFrame.size}); }

  ViewContent content() const override {
    return {.background = Color::black().withAlpha(0.78),
            .cornerRadius = 40.0,
            .elements = {{.frame = {{50.0, 40.0}, {300.0, 40.0}},
                          .kind = TextElement{.text = text,
                                              .font = {.size = 30.0, .weight = FontWeight::Heavy},
                                              .color = Color::white(),
                                              .alignment = TextAlignment::Center}},
                         {.frame = {{10.0, 10.0}, {24.0, 24.0}}, .kind = SpinnerElement{}}}};
  }

  void setText(const char* newText) {
    text = newText;
    contentChanged();
  }

  std::string text = "Mail";
};

/// The NSWindow with this number.
NSWindow* native(const Window& window) {
  return [NSApp windowWithWindowNumber:window.number()];
}

TEST(MacWindowTest, IsBorderlessClearAndClickThrough) {
  const MacWindow window({.frame = windowFrame,
                          .level = WindowLevel::StatusWindow,
                          .collectionBehavior = CollectionBehavior::CanJoinAllSpaces | CollectionBehavior::Stationary |
                                                CollectionBehavior::IgnoresCycle});
  NSWindow* made = native(window);
  ASSERT_NE(made, nil);
  EXPECT_EQ([made styleMask], 0U);
  EXPECT_FALSE([made isOpaque]);
  EXPECT_EQ(toColor([made backgroundColor]).alpha, 0.0);
  EXPECT_TRUE([made hasShadow]);
  EXPECT_TRUE([made ignoresMouseEvents]);
  EXPECT_EQ([made level], 25);
  EXPECT_EQ([made collectionBehavior], 81U);
  EXPECT_EQ([made alphaValue], 0.0);
  EXPECT_FALSE([made isVisible]);
  EXPECT_EQ(window.frame(), windowFrame);
}

TEST(MacWindowTest, ChangesItsBehaviourAndFrame) {
  MacWindow window({.frame = windowFrame});
  EXPECT_EQ([native(window) level], 3);
  window.setCollectionBehavior(CollectionBehavior::Transient | CollectionBehavior::IgnoresCycle);
  EXPECT_EQ([native(window) collectionBehavior], 72U);
  window.setFrame({{10.0, 20.0}, {300.0, 50.0}});
  EXPECT_EQ(window.frame(), (Rect{{10.0, 20.0}, {300.0, 50.0}}));
}

TEST(MacWindowTest, ShowsWithoutTakingTheKeyboard) {
  MacWindow window({.frame = windowFrame, .alpha = 1.0});
  window.orderFront();
  EXPECT_TRUE([native(window) isVisible]);
  EXPECT_FALSE([native(window) isKeyWindow]);
  window.orderOut();
  EXPECT_FALSE([native(window) isVisible]);
}

TEST(MacWindowTest, ShowsItsViewOnALayer) {
  MacWindow window({.frame = windowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSView* view = [native(window) contentView];
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

TEST(MacWindowTest, LeavesTheTextTheRoomItAskedFor) {
  MacWindow window({.frame = windowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSTextField* label = [[[native(window) contentView] subviews] objectAtIndex:0];
  const NSSize cell = [[label cell] cellSize];
  const Size text = textSize("Mail", {.size = 30.0, .weight = FontWeight::Heavy});
  EXPECT_NEAR(NSWidth([label frame]) - (cell.width - text.width), 300.0, 0.001);
  EXPECT_NEAR(NSMidX([label frame]), 200.0, 0.001);
  EXPECT_NEAR(NSMidY([label frame]), 60.0, 0.001);
}

TEST(MacWindowTest, TurnsASpinnerForDarkSurroundings) {
  MacWindow window({.frame = windowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSProgressIndicator* spinner = [[[native(window) contentView] subviews] objectAtIndex:1];
  EXPECT_EQ([spinner style], NSProgressIndicatorStyleSpinning);
  EXPECT_TRUE([spinner isIndeterminate]);
  EXPECT_EQ([spinner controlSize], NSControlSizeRegular);
  EXPECT_TRUE([[[spinner appearance] name] isEqualToString:NSAppearanceNameDarkAqua]);
  EXPECT_EQ(toRect([spinner frame]), (Rect{{10.0, 10.0}, {24.0, 24.0}}));
}

TEST(MacWindowTest, FollowsItsView) {
  MacWindow window({.frame = windowFrame});
  window.setContentView(std::make_unique<PlateView>());
  static_cast<PlateView*>(window.contentView())->setText("Música");
  NSTextField* label = [[[native(window) contentView] subviews] objectAtIndex:0];
  EXPECT_EQ(toString([label stringValue]), "Música");
}

TEST(MacWindowTest, HasItsShadowFollowItsSize) {
  MacWindow window({.frame = windowFrame});
  const int before = gnustep::shadowChanges(native(window));
  window.setFrame({windowFrame.origin, {200.0, 60.0}});
  EXPECT_GT(gnustep::shadowChanges(native(window)), before);
}

// With pixels of several points, as GNUstep's own windows stand on whole points.
TEST(MacWindowTest, StandsOnWholePixels) {
  gnustep::setBackingScale(0.5);
  const Rect between{{200.6, 300.1}, {400.9, 120.3}};
  const Rect onPixels{{200.0, 300.0}, {402.0, 120.0}};
  MacWindow window({.frame = between});
  EXPECT_EQ(window.frame(), onPixels);
  window.setFrame(windowFrame);
  window.setFrame(between);
  EXPECT_EQ(window.frame(), onPixels);
  gnustep::setBackingScale(std::nullopt);
}

TEST(MacWindowTest, ShowsItsPartsOnWholePixelsWithAllTheirRoom) {
  MacWindow window({.frame = windowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSTextField* label = [[[native(window) contentView] subviews] objectAtIndex:0];
  const NSRect exact = [label frame];
  // As when the window comes to a screen with other pixels.
  gnustep::setBackingScale(1.0 / 16.0);
  [[native(window) contentView] viewDidChangeBackingProperties];
  gnustep::setBackingScale(std::nullopt);
  const NSRect frame = [label frame];
  EXPECT_TRUE(NSContainsRect(frame, exact));
  for (const double edge : {NSMinX(frame), NSMinY(frame), NSMaxX(frame), NSMaxY(frame)}) {
    EXPECT_EQ(std::fmod(edge, 16.0), 0.0);
  }
}

TEST(MacWindowTest, SetsItsAlphaAtOnce) {
  MacWindow window({.frame = windowFrame});
  window.setAlpha(0.78);
  EXPECT_EQ(window.alpha(), 0.78);
  EXPECT_NEAR([native(window) alphaValue], 0.78, 1e-6);
}

TEST(MacWindowTest, AnimatesItsAlphaInAGroupOfTheGivenDuration) {
  gnustep::takeAnimations();
  MacWindow window({.frame = windowFrame, .alpha = 1.0});
  bool completed = false;
  window.animateAlpha(0.0, 350ms, [&] { completed = true; });
  EXPECT_FALSE(completed);
  EXPECT_TRUE(runUntil([&] { return window.alpha() < 0.9 && window.alpha() > 0.1; }));
  EXPECT_TRUE(runUntil([&] { return completed; }));
  EXPECT_EQ(window.alpha(), 0.0);
  EXPECT_THAT(gnustep::takeAnimations(),
              testing::ElementsAre(AnimationRecord{.duration = 0.35, .allowsImplicitAnimation = true, .alpha = 0.0}));
}

TEST(MacWindowTest, TakesADurationOfZeroAsAtOnceWithoutImplicitAnimation) {
  gnustep::takeAnimations();
  MacWindow window({.frame = windowFrame});
  bool completed = false;
  window.animateAlpha(0.78, 0ms, [&] { completed = true; });
  EXPECT_EQ(window.alpha(), 0.78);
  EXPECT_FALSE(completed);
  EXPECT_TRUE(runUntil([&] { return completed; }));
  EXPECT_THAT(gnustep::takeAnimations(),
              testing::ElementsAre(AnimationRecord{.duration = 0.0, .allowsImplicitAnimation = false, .alpha = 0.78}));
}

TEST(MacWindowTest, EndsAnAnimationWhenItsAlphaIsSet) {
  MacWindow window({.frame = windowFrame, .alpha = 1.0});
  bool completed = false;
  window.animateAlpha(0.0, 100ms, [&] { completed = true; });
  window.setAlpha(0.5);
  gnustep::runFor(300ms);
  EXPECT_EQ(window.alpha(), 0.5);
  EXPECT_NEAR([native(window) alphaValue], 0.5, 1e-6);
  EXPECT_FALSE(completed);
}

TEST(MacWindowTest, ReplacesARunningAnimation) {
  MacWindow window({.frame = windowFrame, .alpha = 1.0});
  std::string ended;
  window.animateAlpha(0.0, 200ms, [&] { ended += "a"; });
  window.animateAlpha(0.6, 50ms, [&] { ended += "b"; });
  EXPECT_TRUE(runUntil([&] { return !ended.empty(); }));
  gnustep::runFor(300ms);
  EXPECT_EQ(ended, "b");
  EXPECT_NEAR([native(window) alphaValue], 0.6, 1e-6);
}

TEST(MacWindowTest, MayBeOwnedByTheCompletionOfItsAnimation) {
  auto window = std::make_shared<MacWindow>(OverlayWindowOptions{.frame = windowFrame, .alpha = 1.0});
  const std::weak_ptr<MacWindow> weak = window;
  MacWindow& fading = *window;
  fading.animateAlpha(0.0, 50ms, [window = std::move(window)] { window->orderOut(); });
  EXPECT_FALSE(weak.expired());
  EXPECT_TRUE(runUntil([&] { return weak.expired(); }));
}

TEST(MacWindowTest, TakesItsWindowWithIt) {
  WindowNumber number = 0;
  {
    MacWindow window({.frame = windowFrame, .alpha = 1.0});
    window.setContentView(std::make_unique<PlateView>());
    window.orderFront();
    window.animateAlpha(0.0, 10s, [] {});
    number = window.number();
  }
  // GNUstep itself may hold on to a window that it has just shown.
  gnustep::runFor(100ms);
  EXPECT_FALSE([[NSApp windowWithWindowNumber:number] isVisible]);
}

}  // namespace
}  // namespace roomlattice::platform::macos

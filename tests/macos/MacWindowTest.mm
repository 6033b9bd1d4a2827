#import "platform/macos/MacWindow.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include "tests/macos/MainLoop.h"
#include "tests/macos/NativeWindow.h"
#include "tests/macos/PlateView.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;
using tests::runUntil;

using tests::PlateView;
using tests::nativeWindow;
using tests::plateWindowFrame;

TEST(MacWindowTest, IsBorderlessClearAndClickThrough) {
  const MacWindow window({.frame = plateWindowFrame,
                          .level = WindowLevel::StatusWindow,
                          .collectionBehavior = CollectionBehavior::CanJoinAllSpaces | CollectionBehavior::Stationary |
                                                CollectionBehavior::IgnoresCycle});
  NSWindow* made = nativeWindow(window);
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
  EXPECT_EQ(window.frame(), plateWindowFrame);
}

TEST(MacWindowTest, ChangesItsBehaviourAndFrame) {
  MacWindow window({.frame = plateWindowFrame});
  EXPECT_EQ([nativeWindow(window) level], 3);
  window.setCollectionBehavior(CollectionBehavior::Transient | CollectionBehavior::IgnoresCycle);
  EXPECT_EQ([nativeWindow(window) collectionBehavior], 72U);
  window.setFrame({{10.0, 20.0}, {300.0, 50.0}});
  EXPECT_EQ(window.frame(), (Rect{{10.0, 20.0}, {300.0, 50.0}}));
}

TEST(MacWindowTest, ShowsWithoutTakingTheKeyboard) {
  MacWindow window({.frame = plateWindowFrame, .alpha = 1.0});
  window.orderFront();
  EXPECT_TRUE([nativeWindow(window) isVisible]);
  EXPECT_FALSE([nativeWindow(window) isKeyWindow]);
  window.orderOut();
  EXPECT_FALSE([nativeWindow(window) isVisible]);
}

TEST(MacWindowTest, LeavesTheTextTheRoomItAskedFor) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSTextField* label = [[[nativeWindow(window) contentView] subviews] objectAtIndex:0];
  const NSSize cell = [[label cell] cellSize];
  const Size text = textSize("Mail", {.size = 30.0, .weight = FontWeight::Heavy});
  EXPECT_NEAR(NSWidth([label frame]) - (cell.width - text.width), 300.0, 0.001);
  EXPECT_NEAR(NSMidX([label frame]), 200.0, 0.001);
  EXPECT_NEAR(NSMidY([label frame]), 60.0, 0.001);
}

TEST(MacWindowTest, TurnsASpinnerForDarkSurroundings) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  NSProgressIndicator* spinner = [[[nativeWindow(window) contentView] subviews] objectAtIndex:1];
  EXPECT_EQ([spinner style], NSProgressIndicatorStyleSpinning);
  EXPECT_TRUE([spinner isIndeterminate]);
  EXPECT_EQ([spinner controlSize], NSControlSizeRegular);
  EXPECT_TRUE([[[spinner appearance] name] isEqualToString:NSAppearanceNameDarkAqua]);
  EXPECT_EQ(toRect([spinner frame]), (Rect{{10.0, 10.0}, {24.0, 24.0}}));
}

TEST(MacWindowTest, FollowsItsView) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  static_cast<PlateView*>(window.contentView())->setText("Música");
  NSTextField* label = [[[nativeWindow(window) contentView] subviews] objectAtIndex:0];
  EXPECT_EQ(toString([label stringValue]), "Música");
}

TEST(MacWindowTest, ShowsATextOfSeveralLinesAsOne) {
  MacWindow window({.frame = plateWindowFrame});
  window.setContentView(std::make_unique<PlateView>());
  static_cast<PlateView*>(window.contentView())->setText("Work\nMail");
  NSTextField* label = [[[nativeWindow(window) contentView] subviews] objectAtIndex:0];
  EXPECT_EQ(toString([label stringValue]), "Work Mail");
}

TEST(MacWindowTest, SetsItsAlphaAtOnce) {
  MacWindow window({.frame = plateWindowFrame});
  window.setAlpha(0.78);
  EXPECT_EQ(window.alpha(), 0.78);
  EXPECT_NEAR([nativeWindow(window) alphaValue], 0.78, 1e-6);
}

TEST(MacWindowTest, EndsAnAnimationWhenItsAlphaIsSet) {
  MacWindow window({.frame = plateWindowFrame, .alpha = 1.0});
  bool completed = false;
  window.animateAlpha(0.0, 100ms, [&] { completed = true; });
  window.setAlpha(0.5);
  tests::runFor(300ms);
  EXPECT_EQ(window.alpha(), 0.5);
  EXPECT_NEAR([nativeWindow(window) alphaValue], 0.5, 1e-6);
  EXPECT_FALSE(completed);
}

TEST(MacWindowTest, ReplacesARunningAnimation) {
  MacWindow window({.frame = plateWindowFrame, .alpha = 1.0});
  std::string ended;
  window.animateAlpha(0.0, 200ms, [&] { ended += "a"; });
  window.animateAlpha(0.6, 50ms, [&] { ended += "b"; });
  EXPECT_TRUE(runUntil([&] { return !ended.empty(); }));
  tests::runFor(300ms);
  EXPECT_EQ(ended, "b");
  EXPECT_NEAR([nativeWindow(window) alphaValue], 0.6, 1e-6);
}

TEST(MacWindowTest, MayBeOwnedByTheCompletionOfItsAnimation) {
  auto window = std::make_shared<MacWindow>(OverlayWindowOptions{.frame = plateWindowFrame, .alpha = 1.0});
  const std::weak_ptr<MacWindow> weak = window;
  MacWindow& fading = *window;
  fading.animateAlpha(0.0, 50ms, [window = std::move(window)] { window->orderOut(); });
  EXPECT_FALSE(weak.expired());
  EXPECT_TRUE(runUntil([&] { return weak.expired(); }));
}

TEST(MacWindowTest, TakesItsWindowWithIt) {
  WindowNumber number = 0;
  {
    MacWindow window({.frame = plateWindowFrame, .alpha = 1.0});
    window.setContentView(std::make_unique<PlateView>());
    window.orderFront();
    window.animateAlpha(0.0, 10s, [] {});
    number = window.number();
  }
  // GNUstep itself may hold on to a window that it has just shown.
  tests::runFor(100ms);
  EXPECT_FALSE([[NSApp windowWithWindowNumber:number] isVisible]);
}

}  // namespace
}  // namespace roomlattice::platform::macos

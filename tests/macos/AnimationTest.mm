#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/Animation.h"

namespace roomlattice::gnustep {
namespace {

using namespace std::chrono_literals;

TEST(AnimationTest, EndsWithItsWindow) {
  NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 100, 100)
                                                 styleMask:NSWindowStyleMaskBorderless
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO];
  [NSAnimationContext beginGrouping];
  [[NSAnimationContext currentContext] setDuration:0.1];
  [[window animator] setAlphaValue:0.5];
  [NSAnimationContext endGrouping];
  // It is released when it is closed.
  [window close];
  // Steps of what has gone would end the program.
  tests::runFor(300ms);
  EXPECT_EQ(takeAnimations().back().alpha, 0.5);
}

}  // namespace
}  // namespace roomlattice::gnustep

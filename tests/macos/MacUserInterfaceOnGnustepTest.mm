#import "platform/macos/MacUserInterface.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include "tests/macos/supplement/Application.h"

namespace roomlattice::platform::macos {
namespace {

TEST(MacUserInterfaceOnGnustepTest, KnowsTheScreens) {
  const MacUserInterface userInterface;
  ASSERT_EQ(userInterface.screens().size(), 1U);
  EXPECT_EQ(userInterface.screens().front().frame.size, (Size{1280.0, 800.0}));
  EXPECT_EQ(userInterface.mainScreen(), userInterface.screens().front());
}

TEST(MacUserInterfaceOnGnustepTest, MatchesTheAppearance) {
  const MacUserInterface userInterface;
  gnustep::setLook(gnustep::Look::Dark);
  EXPECT_EQ(userInterface.effectiveAppearance(), Appearance::Dark);
  gnustep::setLook(gnustep::Look::Neither);
  EXPECT_EQ(userInterface.effectiveAppearance(), std::nullopt);
  gnustep::setLook(gnustep::Look::Light);
  EXPECT_EQ(userInterface.effectiveAppearance(), Appearance::Light);
}

TEST(MacUserInterfaceOnGnustepTest, AsksForDarkBeforeLight) {
  static_cast<void>(MacUserInterface().effectiveAppearance());
  NSArray* expected = [NSArray arrayWithObjects:NSAppearanceNameDarkAqua, NSAppearanceNameAqua, nil];
  EXPECT_TRUE([gnustep::appearanceNamesAsked() isEqualToArray:expected]);
}

}  // namespace
}  // namespace roomlattice::platform::macos

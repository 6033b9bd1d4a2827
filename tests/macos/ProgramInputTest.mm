#import "tests/macos/ProgramFixture.h"

#import "platform/macos/Strings.h"

#include <gmock/gmock.h>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

using tests::runUntil;

/// The program under the user's own pointer and keys.
using ProgramInputTest = ProgramFixture;

TEST_F(ProgramInputTest, SwitchesToTheDesktopWhoseRowIsClicked) {
  [[NSUserDefaults standardUserDefaults] setBool:YES forKey:@"InstantMenuSwitch"];
  server_.spaces.erase(server_.spaces.begin() + 2);
  run([this] {
    awaitTour();
    stream_.posted.clear();
    openMenu();
    ASSERT_EQ([[statusItem() menu] numberOfItems], 7);
    const NSRect row = gnustep::screenFrame(menuItem(2));
    user_.click(NSMakePoint(NSMinX(row) + 60.0, NSMidY(row)));
    ASSERT_TRUE(runUntil([this] { return title() == " Desktop 3 "; }));
    EXPECT_EQ(gnustep::menuWindow(), nil);
  });
  ASSERT_GE(stream_.posted.size(), 3U);
  constexpr double smallest = 1.401298464324817e-45;
  for (std::size_t i = 0; i < 3; ++i) {
    const double phase = i == 2 ? 4.0 : static_cast<double>(i) + 1.0;
    EXPECT_EQ(stream_.posted[i].fields, swipeFields(phase, smallest, 400.0));
  }
}

TEST_F(ProgramInputTest, RenamesADesktopInItsRow) {
  run([this] {
    openMenu();
    const NSRect row = gnustep::screenFrame(menuItem(1));
    const NSPoint pencil = NSMakePoint(NSMinX(row) + 220.0 - 19.0, NSMidY(row));
    user_.moveTo(pencil);
    user_.click(pencil);
    user_.type("Film");
    user_.pressReturn();
    EXPECT_TRUE(runUntil([this] { return title() == " Film "; }));
    EXPECT_EQ(labelText(12), "Film");
    NSDictionary* names = [[NSUserDefaults standardUserDefaults] dictionaryForKey:@"SpaceNames"];
    EXPECT_EQ(toString([names objectForKey:@"b"]), "Film");
  });
}

/// What another process finds among this one's settings.
std::string storedSetting(NSString* key) {
  [[NSUserDefaults standardUserDefaults] synchronize];
  NSTask* task = [[[NSTask alloc] init] autorelease];
  NSPipe* pipe = [NSPipe pipe];
  [task setLaunchPath:@"/usr/bin/defaults"];
  [task setArguments:@[ @"read", [[NSProcessInfo processInfo] processName], key ]];
  [task setStandardOutput:pipe];
  [task launch];
  NSData* output = [[pipe fileHandleForReading] readDataToEndOfFile];
  [task waitUntilExit];
  return toString([[[NSString alloc] initWithData:output encoding:NSUTF8StringEncoding] autorelease]);
}

TEST_F(ProgramInputTest, StoresAPreferenceThatIsClicked) {
  run([this] {
    NSButton* box =
        (NSButton*)control(openPreferences(), [NSButton class], @"Show desktop label during swipe transitions");
    ASSERT_NE(box, nil);
    ASSERT_EQ([box state], NSOnState);
    user_.click(place(box, 12.0));
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    EXPECT_TRUE(runUntil([defaults] { return [defaults objectForKey:@"ShowSignInSwipeMode"] != nil; }));
    EXPECT_FALSE([defaults boolForKey:@"ShowSignInSwipeMode"]);
  });
  EXPECT_THAT(storedSetting(@"ShowSignInSwipeMode"), testing::HasSubstr("ShowSignInSwipeMode"));
}

TEST_F(ProgramInputTest, AppliesASliderThatIsClicked) {
  run([this] {
    NSSlider* slider = (NSSlider*)control(openPreferences(), [NSSlider class], nil);
    ASSERT_NE(slider, nil);
    const CGFloat before = NSHeight([label(12) frame]);
    user_.click(place(slider, 30.0));
    EXPECT_TRUE(runUntil([&] { return NSHeight([label(12) frame]) < before; }));
    EXPECT_LT([slider doubleValue], 100.0);
  });
}

}  // namespace
}  // namespace roomlattice::platform::macos

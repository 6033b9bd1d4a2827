#import "tests/macos/ProgramFixture.h"

#import <dispatch/dispatch.h>

#import "platform/macos/Action.h"
#import "platform/macos/MacPlatform.h"
#import "platform/macos/ObjectPointer.h"
#import "platform/macos/Strings.h"

#include "app/Entry.h"
#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;

NSEvent* wakeUp() {
  return [NSEvent otherEventWithType:NSApplicationDefined
                            location:NSZeroPoint
                       modifierFlags:0
                           timestamp:0
                        windowNumber:0
                             context:nil
                             subtype:0
                               data1:0
                               data2:0];
}

NSView* find(NSView* view, Class kind, NSString* title) {
  for (NSView* child in [view subviews]) {
    const bool matches = title == nil || ([child respondsToSelector:@selector(title)] &&
                                          [[(NSButton*)child title] isEqualToString:title]);
    if ([child isMemberOfClass:kind] && matches) {
      return child;
    }
    if (NSView* found = find(child, kind, title)) {
      return found;
    }
  }
  return nil;
}

}  // namespace

ProgramFixture::ProgramFixture() {
  server_.spaces = {{.identifier = 11, .uuid = "a"},
                    {.identifier = 12, .uuid = "b"},
                    {.identifier = 13, .uuid = "film", .type = 4},
                    {.identifier = 14, .uuid = "c"}};
  server_.active = 12;
}

void ProgramFixture::run(const std::function<void()>& script) {
  const std::unique_ptr<Platform> platform = makePlatform();
  __block bool carriedOut = false;
  dispatch_async(dispatch_get_main_queue(), ^{
    script();
    carriedOut = true;
    [NSApp stop:nil];
    [NSApp postEvent:wakeUp() atStart:NO];
  });
  EXPECT_EQ(runRoomlattice(*platform), 0);
  EXPECT_TRUE(carriedOut);
  gnustep::closeMenu();
}

void ProgramFixture::awaitTour() {
  server_.followSwipes();
  bool hasEnded = false;
  const auto observer = adopt([[RoomlatticeAction alloc] initWithFunction:[&hasEnded](id) { hasEnded = true; }]);
  NSNotificationCenter* center = [NSNotificationCenter defaultCenter];
  [center addObserver:observer.get() selector:@selector(invoke:) name:@"SpaceManagerTourDidEnd" object:nil];
  EXPECT_TRUE(tests::runUntil([&hasEnded] { return hasEnded; }));
  [center removeObserver:observer.get()];
}

NSStatusItem* ProgramFixture::statusItem() {
  return [gnustep::statusItems() lastObject];
}

std::string ProgramFixture::title() {
  return toString([[[statusItem() button] attributedTitle] string]);
}

NSMenuItem* ProgramFixture::menuItem(NSInteger index) {
  return (NSMenuItem*)[[statusItem() menu] itemAtIndex:index];
}

void ProgramFixture::openMenu() {
  const auto isOpen = [] { return gnustep::menuWindow() != nil; };
  // A click is lost while the window manager still places the item's window.
  constexpr int attempts = 10;
  for (int attempt = 0; attempt < attempts && !isOpen(); ++attempt) {
    user_.click(centre([[[statusItem() button] window] frame]));
    static_cast<void>(tests::runUntil(isOpen, 2s));
  }
  ASSERT_TRUE(isOpen());
}

NSWindow* ProgramFixture::label(std::uint64_t space) {
  for (const auto& [window, spaces] : server_.windows) {
    if (spaces.contains(space)) {
      return [NSApp windowWithWindowNumber:window];
    }
  }
  return nil;
}

std::string ProgramFixture::labelText(std::uint64_t space) {
  NSTextField* field = [[[label(space) contentView] subviews] objectAtIndex:0];
  return toString([field stringValue]);
}

NSWindow* ProgramFixture::openPreferences() {
  openMenu();
  if (gnustep::menuWindow() == nil) {
    return nil;
  }
  user_.click(centre(gnustep::screenFrame(menuItem(4))));
  NSWindow* preferences = nil;
  static_cast<void>(tests::runUntil([&preferences] {
    for (NSWindow* window in [NSApp windows]) {
      if ([[window title] isEqualToString:@"Plinkhaven Preferences"] && [window isVisible]) {
        preferences = window;
      }
    }
    return preferences != nil;
  }));
  // The window manager has yet to give it a frame and its place.
  tests::runFor(500ms);
  return preferences;
}

NSView* ProgramFixture::control(NSWindow* window, Class kind, NSString* title) {
  return find([window contentView], kind, title);
}

NSPoint ProgramFixture::place(NSView* view, CGFloat fromLeft) {
  const NSRect inWindow = [view convertRect:[view bounds] toView:nil];
  const NSPoint origin = [[view window] frame].origin;
  return NSMakePoint(origin.x + NSMinX(inWindow) + fromLeft, origin.y + NSMidY(inWindow));
}

NSPoint ProgramFixture::centre(NSRect frame) {
  return NSMakePoint(NSMidX(frame), NSMidY(frame));
}

std::vector<gnustep::FieldRecord> swipeFields(double phase, double progress, double velocity) {
  using Kind = gnustep::FieldRecord::Kind;
  return {{55, Kind::Integer, 30.0},     {110, Kind::Integer, 23.0}, {132, Kind::Integer, phase},
          {124, Kind::Double, progress}, {123, Kind::Integer, 1.0},  {129, Kind::Double, velocity},
          {130, Kind::Double, velocity}};
}

}  // namespace roomlattice::platform::macos

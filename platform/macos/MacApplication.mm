#import "platform/macos/MacApplication.h"

#import "platform/macos/Action.h"

@interface RoomlatticeApplicationDelegate : RoomlatticeAction <NSApplicationDelegate>
@end

@implementation RoomlatticeApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  [self invoke:notification];
}

// Nothing is restored; without this answer macOS 14 complains in the log.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
  return YES;
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)application {
  return NO;
}

@end

namespace roomlattice::platform::macos {
namespace {

NSApplicationActivationPolicy toNSActivationPolicy(ActivationPolicy policy) {
  switch (policy) {
    case ActivationPolicy::Accessory:
      return NSApplicationActivationPolicyAccessory;
  }
}

}  // namespace

MacApplication::MacApplication() : application_(share<NSApplication>([NSApplication sharedApplication])) {}

void MacApplication::setActivationPolicy(ActivationPolicy policy) {
  @autoreleasepool {
    [application_.get() setActivationPolicy:toNSActivationPolicy(policy)];
  }
}

int MacApplication::run(std::function<void()> didFinishLaunching) {
  @autoreleasepool {
    const auto launched = [didFinishLaunching = std::move(didFinishLaunching)](id) { didFinishLaunching(); };
    const auto delegate = adopt([[RoomlatticeApplicationDelegate alloc] initWithFunction:launched]);
    [application_.get() setDelegate:delegate.get()];
    [application_.get() run];
    [application_.get() setDelegate:nil];
  }
  return 0;
}

void MacApplication::activateIgnoringOtherApps() {
  [application_.get() activateIgnoringOtherApps:YES];
}

void MacApplication::terminate() {
  [application_.get() terminate:nil];
}

}  // namespace roomlattice::platform::macos

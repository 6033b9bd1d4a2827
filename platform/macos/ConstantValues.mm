// The values that the program depends on, checked against the headers of the system it is built on. docs/MACOS.md lists
// those that no header has a name for.
#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <Carbon/Carbon.h>

#include "platform/Events.h"
#include "platform/Window.h"

namespace roomlattice::platform::macos {
namespace {

static_assert(NSApplicationActivationPolicyAccessory == 1);
static_assert(NSWindowStyleMaskBorderless == 0);
static_assert(NSEventMaskMouseMoved == 1ULL << 5);
static_assert(NSEventMaskKeyDown == 0x400);
static_assert((NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect) == 0x281);
static_assert(NSActivityUserInitiatedAllowingIdleSystemSleep == 0x00EFFFFF);
static_assert(NSBezelStyleRegularSquare == 2);
static_assert(NSImageOnly == 1);
static_assert(NSTextFieldSquareBezel == 0);
static_assert(NSFocusRingTypeDefault == 0);
static_assert(kCGSessionEventTap == 1);
static_assert(kCGHeadInsertEventTap == 0);
static_assert(kCGEventTapOptionListenOnly == 1);
static_assert(kCGEventMaskForAllEvents == ~CGEventMask{0});
static_assert(kCGEventTapDisabledByTimeout == tapEvent::disabledByTimeout);
static_assert(kCGEventTapDisabledByUserInput == tapEvent::disabledByUserInput);
static_assert(static_cast<std::uint32_t>(EventField::SourceProcessID) == kCGEventSourceUnixProcessID);
static_assert(keyCode::returnKey == kVK_Return);
static_assert(keyCode::escape == kVK_Escape);
static_assert(keyCode::keypadEnter == kVK_ANSI_KeypadEnter);
// Some releases have a function tell the levels.
static_assert(!__builtin_constant_p(NSFloatingWindowLevel) ||
              static_cast<NSInteger>(WindowLevel::Floating) == NSFloatingWindowLevel);
static_assert(!__builtin_constant_p(NSStatusWindowLevel) ||
              static_cast<NSInteger>(WindowLevel::StatusWindow) == NSStatusWindowLevel);
static_assert(static_cast<NSUInteger>(CollectionBehavior::CanJoinAllSpaces) ==
              NSWindowCollectionBehaviorCanJoinAllSpaces);
static_assert(static_cast<NSUInteger>(CollectionBehavior::Managed) == NSWindowCollectionBehaviorManaged);
static_assert(static_cast<NSUInteger>(CollectionBehavior::Transient) == NSWindowCollectionBehaviorTransient);
static_assert(static_cast<NSUInteger>(CollectionBehavior::Stationary) == NSWindowCollectionBehaviorStationary);
static_assert(static_cast<NSUInteger>(CollectionBehavior::IgnoresCycle) == NSWindowCollectionBehaviorIgnoresCycle);
static_assert(static_cast<NSUInteger>(CollectionBehavior::FullScreenAuxiliary) ==
              NSWindowCollectionBehaviorFullScreenAuxiliary);

}  // namespace
}  // namespace roomlattice::platform::macos

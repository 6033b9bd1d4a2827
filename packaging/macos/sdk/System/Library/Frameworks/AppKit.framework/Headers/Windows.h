// Windows and their animation.
#pragma once

#import <AppKit/Application.h>

#pragma clang assume_nonnull begin

// <NSWindow.h>, https://developer.apple.com/documentation/appkit/nswindowstylemask
typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
  NSWindowStyleMaskBorderless = 0,
  NSWindowStyleMaskTitled = 1 << 0,
  NSWindowStyleMaskClosable = 1 << 1,
  NSWindowStyleMaskMiniaturizable = 1 << 2,
  NSWindowStyleMaskResizable = 1 << 3,
};
// <NSGraphics.h>, https://developer.apple.com/documentation/appkit/nsbackingstoretype
typedef NS_ENUM(NSUInteger, NSBackingStoreType) {
  NSBackingStoreRetained = 0,
  NSBackingStoreNonretained = 1,
  NSBackingStoreBuffered = 2
};
// <NSWindow.h>, https://developer.apple.com/documentation/appkit/nswindowcollectionbehavior
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
  NSWindowCollectionBehaviorDefault = 0,
  NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
  NSWindowCollectionBehaviorMoveToActiveSpace = 1 << 1,
  NSWindowCollectionBehaviorManaged = 1 << 2,
  NSWindowCollectionBehaviorTransient = 1 << 3,
  NSWindowCollectionBehaviorStationary = 1 << 4,
  NSWindowCollectionBehaviorParticipatesInCycle = 1 << 5,
  NSWindowCollectionBehaviorIgnoresCycle = 1 << 6,
  NSWindowCollectionBehaviorFullScreenPrimary = 1 << 7,
  NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
};
typedef NSInteger NSWindowLevel;
// <NSWindow.h>, https://developer.apple.com/documentation/appkit/nswindowlevel; the numbers are those of
// <CGWindowLevel.h>
static const NSWindowLevel NSFloatingWindowLevel = 3;
static const NSWindowLevel NSStatusWindowLevel = 25;

@interface NSWindow : NSResponder <NSAnimatablePropertyContainer, NSAppearanceCustomization, NSAccessibility>
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)flag;
@property(copy) NSString* title;
@property(nullable, strong) __kindof NSView* contentView;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property(getter=isOpaque) BOOL opaque;
@property(nullable, copy) NSColor* backgroundColor;
@property BOOL hasShadow;
@property BOOL ignoresMouseEvents;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property CGFloat alphaValue;
@property(readonly) NSInteger windowNumber;
@property(readonly) NSRect frame;
@property(nullable, weak) NSView* initialFirstResponder;
- (void)setFrame:(NSRect)frameRect display:(BOOL)flag;
- (void)center;
- (void)close;
- (void)orderOut:(nullable id)sender;
- (void)orderFrontRegardless;
- (void)makeKeyWindow;
- (void)invalidateShadow;
@property(nullable, readonly, strong) NSScreen* screen;
- (BOOL)makeFirstResponder:(nullable NSResponder*)responder;
@end

@interface NSWindowController : NSResponder
- (instancetype)initWithWindow:(nullable NSWindow*)window;
@property(nullable, strong) NSWindow* window;
@property BOOL shouldCascadeWindows;
- (void)showWindow:(nullable id)sender;
@end

@interface NSAnimationContext : NSObject
+ (void)runAnimationGroup:(void(__attribute__((noescape)) ^)(NSAnimationContext* context))changes
        completionHandler:(nullable void (^)(void))completionHandler;
+ (void)beginGrouping;
+ (void)endGrouping;
@property(class, readonly, strong) NSAnimationContext* currentContext;
@property NSTimeInterval duration;
@property BOOL allowsImplicitAnimation;
@end

#pragma clang assume_nonnull end

// Responders and events.
#pragma once

#import <AppKit/Appearance.h>

#pragma clang assume_nonnull begin

@interface NSResponder : NSObject <NSCoding>
- (void)mouseDown:(NSEvent*)event;
- (void)mouseUp:(NSEvent*)event;
- (void)mouseEntered:(NSEvent*)event;
- (void)mouseExited:(NSEvent*)event;
- (void)interpretKeyEvents:(NSArray<NSEvent*>*)events;
- (BOOL)performKeyEquivalent:(NSEvent*)event;
- (BOOL)tryToPerform:(SEL)action with:(nullable id)object;
@end

@interface NSResponder (NSStandardKeyBindingMethods)
- (void)insertNewline:(nullable id)sender;
- (void)cancelOperation:(nullable id)sender;
- (void)selectAll:(nullable id)sender;
@end

// <NSEvent.h>, https://developer.apple.com/documentation/appkit/nseventtype
typedef NS_ENUM(NSUInteger, NSEventType) { NSEventTypeMouseMoved = 5, NSEventTypeKeyDown = 10 };
// <NSEvent.h>, https://developer.apple.com/documentation/appkit/nseventmask
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
  NSEventMaskMouseMoved = 1ULL << NSEventTypeMouseMoved,
  NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
  NSEventMaskAny = 0xffffffffffffffffULL,
};

// <NSEvent.h>, https://developer.apple.com/documentation/appkit/nseventmodifierflags
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
  NSEventModifierFlagCapsLock = 1 << 16,
  NSEventModifierFlagShift = 1 << 17,
  NSEventModifierFlagControl = 1 << 18,
  NSEventModifierFlagOption = 1 << 19,
  NSEventModifierFlagCommand = 1 << 20,
};

@interface NSEvent : NSObject <NSCopying, NSCoding>
@property(readonly) unsigned short keyCode;
@property(nullable, readonly, copy) NSString* characters;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) NSPoint locationInWindow;
@property(class, readonly) NSPoint mouseLocation;
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))block;
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* _Nullable (^)(NSEvent*))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

#pragma clang assume_nonnull end

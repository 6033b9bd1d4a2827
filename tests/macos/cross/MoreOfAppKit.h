#pragma once

// What the tests use of AppKit and Foundation besides what the program does, declared as in Apple's documentation.
#import <AppKit/AppKit.h>

#pragma clang assume_nonnull begin

@interface NSAutoreleasePool : NSObject
@end

@interface NSDate : NSObject <NSCopying, NSSecureCoding>
+ (instancetype)date;
+ (instancetype)dateWithTimeIntervalSinceNow:(NSTimeInterval)secs;
@end

@interface NSThread : NSObject
@property(class, readonly) BOOL isMainThread;
@end

@interface NSProcessInfo (MoreOfAppKit)
@property(copy) NSString* processName;
@end

@interface NSUserDefaults (MoreOfAppKit)
+ (void)resetStandardUserDefaults;
- (BOOL)synchronize;
- (void)setBool:(BOOL)value forKey:(NSString*)key;
- (void)removePersistentDomainForName:(NSString*)domainName;
@end

typedef NSString* NSRunLoopMode;
FOUNDATION_EXPORT NSRunLoopMode const NSDefaultRunLoopMode;

static inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
  return NSRange{location, length};
}
static inline CGFloat NSWidth(NSRect rect) {
  return rect.size.width;
}
static inline CGFloat NSHeight(NSRect rect) {
  return rect.size.height;
}
static inline CGFloat NSMidX(NSRect rect) {
  return rect.origin.x + rect.size.width * 0.5;
}
static inline CGFloat NSMidY(NSRect rect) {
  return rect.origin.y + rect.size.height * 0.5;
}
static inline CGFloat NSMaxY(NSRect rect) {
  return rect.origin.y + rect.size.height;
}

@interface NSEvent (MoreOfAppKit)
+ (nullable NSEvent*)keyEventWithType:(NSEventType)type
                             location:(NSPoint)location
                        modifierFlags:(NSEventModifierFlags)flags
                            timestamp:(NSTimeInterval)time
                         windowNumber:(NSInteger)wNum
                              context:(nullable id)unusedPassNil
                           characters:(NSString*)keys
          charactersIgnoringModifiers:(NSString*)ukeys
                            isARepeat:(BOOL)flag
                              keyCode:(unsigned short)code;
@end

@interface NSApplication (MoreOfAppKit)
@property(readonly, copy) NSArray<NSWindow*>* windows;
- (void)finishLaunching;
- (nullable NSEvent*)nextEventMatchingMask:(NSEventMask)mask
                                 untilDate:(nullable NSDate*)expiration
                                    inMode:(NSRunLoopMode)mode
                                   dequeue:(BOOL)deqFlag;
- (void)sendEvent:(NSEvent*)event;
- (nullable NSWindow*)windowWithWindowNumber:(NSInteger)windowNum;
@end

@interface NSWindow (MoreOfAppKit)
@property(readonly) NSWindowStyleMask styleMask;
@property(readonly, getter=isVisible) BOOL visible;
@property(readonly, getter=isKeyWindow) BOOL keyWindow;
- (void)orderFront:(nullable id)sender;
- (void)performClose:(nullable id)sender;
@end

@interface NSView (MoreOfAppKit)
@property(copy) NSArray<__kindof NSView*>* subviews;
@end

@interface NSTabView (MoreOfAppKit)
@property(readonly) NSInteger numberOfTabViewItems;
- (NSTabViewItem*)tabViewItemAtIndex:(NSInteger)index;
- (void)selectTabViewItemAtIndex:(NSInteger)index;
@end

@interface NSTabViewItem (MoreOfAppKit)
@property(nullable, strong) id identifier;
@end

@interface NSAppearance (MoreOfAppKit)
@property(readonly, copy) NSAppearanceName name;
@end

@interface NSControl (MoreOfAppKit)
- (BOOL)sendAction:(nullable SEL)action to:(nullable id)target;
- (void)performClick:(nullable id)sender;
@end

@interface NSTextField (MoreOfAppKit)
- (void)selectText:(nullable id)sender;
@end

@interface NSPopUpButton (MoreOfAppKit)
@property BOOL pullsDown;
@end

@interface NSSlider (MoreOfAppKit)
@property double minValue;
@property double maxValue;
@end

@interface NSText (MoreOfAppKit)
@property NSRange selectedRange;
@end

@interface NSImage (MoreOfAppKit)
- (instancetype)initWithSize:(NSSize)size;
@end

@interface NSColor (MoreOfAppKit)
+ (NSColor*)colorWithPatternImage:(NSImage*)image;
+ (NSColor*)colorWithCalibratedWhite:(CGFloat)white alpha:(CGFloat)alpha;
@end

@interface NSPasteboard (MoreOfAppKit)
- (NSInteger)declareTypes:(NSArray<NSPasteboardType>*)newTypes owner:(nullable id)newOwner;
- (nullable NSString*)stringForType:(NSPasteboardType)dataType;
@end

#pragma clang assume_nonnull end

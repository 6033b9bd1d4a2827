// Views.
#pragma once

#import <AppKit/Windows.h>

#pragma clang assume_nonnull begin

// <NSView.h>, https://developer.apple.com/documentation/appkit/nsautoresizingmaskoptions
typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
  NSViewNotSizable = 0,
  NSViewMinXMargin = 1,
  NSViewWidthSizable = 2,
  NSViewMaxXMargin = 4,
  NSViewMinYMargin = 8,
  NSViewHeightSizable = 16,
  NSViewMaxYMargin = 32
};
// <NSGraphics.h>, https://developer.apple.com/documentation/appkit/nsfocusringtype
typedef NS_ENUM(NSUInteger, NSFocusRingType) {
  NSFocusRingTypeDefault = 0,
  NSFocusRingTypeNone = 1,
  NSFocusRingTypeExterior = 2
};

@interface NSView : NSResponder <NSAnimatablePropertyContainer, NSAppearanceCustomization, NSAccessibility>
- (instancetype)initWithFrame:(NSRect)frameRect;
@property(nullable, readonly, assign) NSWindow* window;
@property(nullable, readonly, assign) NSView* superview;
@property(getter=isHidden) BOOL hidden;
@property NSRect frame;
@property NSRect bounds;
@property NSAutoresizingMaskOptions autoresizingMask;
@property BOOL needsDisplay;
@property BOOL wantsLayer;
@property(nullable, strong) CALayer* layer;
@property(nullable, assign) NSView* nextKeyView;
@property NSFocusRingType focusRingType;
@property(nullable, copy) NSString* toolTip;
@property(nullable, readonly, strong) NSMenuItem* enclosingMenuItem;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)setFrameSize:(NSSize)newSize;
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
- (nullable NSView*)hitTest:(NSPoint)point;
- (BOOL)acceptsFirstMouse:(nullable NSEvent*)event;
- (void)addTrackingArea:(NSTrackingArea*)trackingArea;
- (void)removeTrackingArea:(NSTrackingArea*)trackingArea;
- (void)updateTrackingAreas;
- (void)viewDidMoveToWindow;
- (void)viewDidChangeBackingProperties;
- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options;
- (NSRect)alignmentRectForFrame:(NSRect)frame;
- (NSRect)frameForAlignmentRect:(NSRect)alignmentRect;
@end

// <NSTrackingArea.h>, https://developer.apple.com/documentation/appkit/nstrackingareaoptions
typedef NS_OPTIONS(NSUInteger, NSTrackingAreaOptions) {
  NSTrackingMouseEnteredAndExited = 0x01,
  NSTrackingMouseMoved = 0x02,
  NSTrackingCursorUpdate = 0x04,
  NSTrackingActiveWhenFirstResponder = 0x10,
  NSTrackingActiveInKeyWindow = 0x20,
  NSTrackingActiveInActiveApp = 0x40,
  NSTrackingActiveAlways = 0x80,
  NSTrackingAssumeInside = 0x100,
  NSTrackingInVisibleRect = 0x200,
  NSTrackingEnabledDuringMouseDrag = 0x400,
};

@interface NSTrackingArea : NSObject <NSCopying, NSCoding>
- (instancetype)initWithRect:(NSRect)rect
                     options:(NSTrackingAreaOptions)options
                       owner:(nullable id)owner
                    userInfo:(nullable NSDictionary<id, id>*)userInfo;
@end

@interface NSText : NSView
@end
@interface NSTextView : NSText
@end

#pragma clang assume_nonnull end

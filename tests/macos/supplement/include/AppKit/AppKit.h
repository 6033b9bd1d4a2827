#pragma once

#include <Foundation/Foundation.h>

#include_next <AppKit/AppKit.h>
#include <CoreGraphics/CoreGraphics.h>

/// What AppKit has on a Mac and GNUstep lacks.

@class CALayer;

extern "C" NSString* const NSWorkspaceActiveSpaceDidChangeNotification;

inline constexpr NSEventType NSEventTypeKeyDown = NSKeyDown;

enum {
  NSEventMaskAny = NSAnyEventMask,
  NSEventMaskMouseMoved = NSMouseMovedMask,
  NSEventMaskKeyDown = NSKeyDownMask,
  NSEventModifierFlagShift = NSShiftKeyMask,
  NSEventModifierFlagControl = NSControlKeyMask,
  NSEventModifierFlagOption = NSAlternateKeyMask,
  NSEventModifierFlagCommand = NSCommandKeyMask,
};

enum NSAlignmentOptions { NSAlignAllEdgesOutward, NSAlignAllEdgesNearest };

inline constexpr NSProgressIndicatorStyle NSProgressIndicatorStyleSpinning = NSProgressIndicatorSpinningStyle;
inline constexpr NSBezelStyle NSBezelStyleRounded = NSRoundedBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleRegularSquare = NSRegularSquareBezelStyle;

@interface NSApplication (Supplement)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (NSAppearance*)effectiveAppearance;
@end

@interface NSPasteboard (Supplement)
- (NSInteger)clearContents;
@end

@interface NSEvent (Supplement)
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent* event))handler;
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent* event))handler;
+ (void)removeMonitor:(id)monitor;
@end

@interface NSColor (Supplement)
+ (NSColor*)controlAccentColor;
- (CGColorRef)CGColor;
@end

@interface NSColorSpace (Supplement)
+ (NSColorSpace*)sRGBColorSpace;
@end

@interface NSFont (Supplement)
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight;
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(CGFloat)weight;
@end

@interface NSImage (Supplement)
+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect rect))handler;
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
- (NSString*)accessibilityDescription;
- (void)setTemplate:(BOOL)isTemplate;
- (BOOL)isTemplate;
@end

@interface NSView (Supplement)
- (void)setWantsLayer:(BOOL)wants;
- (BOOL)wantsLayer;
- (CALayer*)layer;
- (void)updateTrackingAreas;
- (void)addTrackingArea:(NSTrackingArea*)area;
- (void)removeTrackingArea:(NSTrackingArea*)area;
- (NSArray*)trackingAreas;
- (void)setAccessibilityLabel:(NSString*)label;
- (NSString*)accessibilityLabel;
- (void)setAppearance:(NSAppearance*)appearance;
- (NSAppearance*)appearance;
- (NSRect)alignmentRectForFrame:(NSRect)frame;
- (NSRect)frameForAlignmentRect:(NSRect)rect;
- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options;
- (void)viewDidChangeBackingProperties;
@end

@interface NSScreen (Supplement)
- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options;
@end

@interface NSButton (Supplement)
+ (NSButton*)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action;
+ (NSButton*)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action;
- (void)setContentTintColor:(NSColor*)color;
- (NSColor*)contentTintColor;
@end

@interface NSSlider (Supplement)
+ (NSSlider*)sliderWithValue:(double)value
                    minValue:(double)minimum
                    maxValue:(double)maximum
                      target:(id)target
                      action:(SEL)action;
@end

@interface NSTextField (Supplement)
+ (NSTextField*)labelWithString:(NSString*)text;
+ (NSTextField*)wrappingLabelWithString:(NSString*)text;
+ (NSTextField*)textFieldWithString:(NSString*)text;
- (void)setMaximumNumberOfLines:(NSInteger)lines;
- (NSInteger)maximumNumberOfLines;
- (void)setPreferredMaxLayoutWidth:(CGFloat)width;
- (CGFloat)preferredMaxLayoutWidth;
@end

@interface NSMenu (Supplement)
- (void)removeAllItems;
- (void)cancelTracking;
@end

@interface NSMenuItem (Supplement)
- (void)setView:(NSView*)view;
- (NSView*)view;
@end

@interface NSView (SupplementMenu)
- (NSMenuItem*)enclosingMenuItem;
@end

@interface NSStatusItem (Supplement)
- (NSStatusBarButton*)button;
@end

@interface NSWindow (Supplement)
- (id)animator;
@end

@interface NSAnimationContext (Supplement)
- (void)setAllowsImplicitAnimation:(BOOL)allows;
- (BOOL)allowsImplicitAnimation;
@end

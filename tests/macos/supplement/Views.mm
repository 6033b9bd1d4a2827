#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>
#import <objc/runtime.h>

#include <cmath>

#include "tests/macos/supplement/Properties.h"
#include "tests/macos/supplement/Views.h"

using roomlattice::gnustep::property;
using roomlattice::gnustep::setProperty;

namespace {

const char layerKey[] = "layer";
const char areasKey[] = "tracking areas";
const char tagsKey[] = "tracking tags";
const char accessibilityKey[] = "accessibility label";
const char appearanceKey[] = "appearance";
const char behaviorKey[] = "collection behavior";
const char shadowKey[] = "shadow changes";

std::optional<double> backingScale;

NSRect aligned(NSRect rect, NSAlignmentOptions options) {
  if (!backingScale) {
    return rect;
  }
  const double scale = *backingScale;
  const bool isOutward = options == NSAlignAllEdgesOutward;
  const auto lower = [&](double edge) {
    return (isOutward ? std::floor(edge * scale) : std::round(edge * scale)) / scale;
  };
  const auto upper = [&](double edge) {
    return (isOutward ? std::ceil(edge * scale) : std::round(edge * scale)) / scale;
  };
  const double left = lower(NSMinX(rect));
  const double bottom = lower(NSMinY(rect));
  return NSMakeRect(left, bottom, upper(NSMaxX(rect)) - left, upper(NSMaxY(rect)) - bottom);
}

}  // namespace

@implementation CALayer

- (void)dealloc {
  [backgroundColor_ release];
  [super dealloc];
}

- (CGColorRef)backgroundColor {
  return (CGColorRef)backgroundColor_;
}

- (void)setBackgroundColor:(CGColorRef)color {
  [(id)color retain];
  [backgroundColor_ release];
  backgroundColor_ = (id)color;
}

- (CGFloat)cornerRadius {
  return cornerRadius_;
}

- (void)setCornerRadius:(CGFloat)radius {
  cornerRadius_ = radius;
}

@end

@implementation NSView (Supplement)

- (void)setWantsLayer:(BOOL)wants {
  if (wants != [self wantsLayer]) {
    setProperty(self, layerKey, wants ? [[[CALayer alloc] init] autorelease] : nil);
  }
}

- (BOOL)wantsLayer {
  return [self layer] != nil;
}

- (CALayer*)layer {
  return property(self, layerKey);
}

- (void)updateTrackingAreas {
}

- (void)addTrackingArea:(NSTrackingArea*)area {
  const BOOL inVisibleRect = ([area options] & NSTrackingInVisibleRect) != 0;
  const NSTrackingRectTag tag = [self addTrackingRect:inVisibleRect ? [self bounds] : [area rect]
                                                owner:[area owner]
                                             userData:nullptr
                                         assumeInside:NO];
  NSArray* areas = property(self, areasKey);
  NSArray* tags = property(self, tagsKey);
  setProperty(self, areasKey, [(areas == nil ? [NSArray array] : areas) arrayByAddingObject:area]);
  setProperty(self, tagsKey,
              [(tags == nil ? [NSArray array] : tags) arrayByAddingObject:[NSNumber numberWithInteger:tag]]);
}

- (void)removeTrackingArea:(NSTrackingArea*)area {
  NSMutableArray* areas = [NSMutableArray arrayWithArray:[self trackingAreas]];
  const NSUInteger index = [areas indexOfObjectIdenticalTo:area];
  if (index == NSNotFound) {
    return;
  }
  NSMutableArray* tags = [NSMutableArray arrayWithArray:property(self, tagsKey)];
  [self removeTrackingRect:[[tags objectAtIndex:index] integerValue]];
  [areas removeObjectAtIndex:index];
  [tags removeObjectAtIndex:index];
  setProperty(self, areasKey, areas);
  setProperty(self, tagsKey, tags);
}

- (NSArray*)trackingAreas {
  NSArray* areas = property(self, areasKey);
  return areas == nil ? [NSArray array] : areas;
}

- (void)setAccessibilityLabel:(NSString*)label {
  setProperty(self, accessibilityKey, label);
}

- (NSString*)accessibilityLabel {
  return property(self, accessibilityKey);
}

- (void)setAppearance:(NSAppearance*)appearance {
  setProperty(self, appearanceKey, appearance);
}

- (NSAppearance*)appearance {
  return property(self, appearanceKey);
}

- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options {
  return aligned(rect, options);
}

- (void)viewDidChangeBackingProperties {
}

- (NSRect)alignmentRectForFrame:(NSRect)frame {
  return frame;
}

- (NSRect)frameForAlignmentRect:(NSRect)rect {
  return rect;
}

@end

@implementation NSScreen (Supplement)

- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options {
  return aligned(rect, options);
}

@end

@implementation NSWindow (SupplementBehavior)

- (void)invalidateShadow {
  const int changes = roomlattice::gnustep::shadowChanges(self) + 1;
  setProperty(self, shadowKey, [NSNumber numberWithInt:changes]);
}

- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior {
  setProperty(self, behaviorKey, [NSNumber numberWithUnsignedInteger:behavior]);
}

- (NSWindowCollectionBehavior)collectionBehavior {
  return [property(self, behaviorKey) unsignedIntegerValue];
}

@end

namespace roomlattice::gnustep {

void setBackingScale(std::optional<double> scale) {
  backingScale = scale;
}

int shadowChanges(NSWindow* window) {
  return [property(window, shadowKey) intValue];
}

void paintLayer(NSView* view) {
  NSColor* color = (NSColor*)[[view layer] backgroundColor];
  if (color != nil) {
    const CGFloat radius = [[view layer] cornerRadius];
    [color setFill];
    [[NSBezierPath bezierPathWithRoundedRect:[view bounds] xRadius:radius yRadius:radius] fill];
  }
}

namespace {

void drawRect(NSView* view, SEL, NSRect) {
  paintLayer(view);
}

/// AppKit asks a view for its tracking areas itself when it comes into a window.
void viewDidMoveToWindow(NSView* view, SEL) {
  if ([view window] != nil) {
    [view updateTrackingAreas];
  }
}

void replace(SEL selector, IMP implementation) {
  method_setImplementation(class_getInstanceMethod(objc_getClass("NSView"), selector), implementation);
}

}  // namespace
}  // namespace roomlattice::gnustep

@interface SupplementViewHooks : NSObject
@end

@implementation SupplementViewHooks

+ (void)load {
  roomlattice::gnustep::replace(@selector(drawRect:), (IMP)roomlattice::gnustep::drawRect);
  roomlattice::gnustep::replace(@selector(viewDidMoveToWindow), (IMP)roomlattice::gnustep::viewDidMoveToWindow);
}

@end

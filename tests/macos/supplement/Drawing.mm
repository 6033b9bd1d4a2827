#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include "tests/macos/supplement/Properties.h"

using roomlattice::gnustep::property;
using roomlattice::gnustep::setProperty;

namespace {

const char templateKey[] = "template";
const char descriptionKey[] = "accessibility description";
constexpr CGFloat boldestRegular = 0.3;

}  // namespace

@implementation NSColor (Supplement)

+ (NSColor*)controlAccentColor {
  return [NSColor colorWithSRGBRed:0.0 green:0.5 blue:1.0 alpha:1.0];
}

- (CGColorRef)CGColor {
  return (CGColorRef)self;
}

@end

@interface SupplementPatternHook : NSObject
@end

@implementation SupplementPatternHook

/// GNUstep raises an exception where AppKit has no answer.
+ (void)load {
  const auto none = [](id, SEL, NSColorSpace*) -> NSColor* { return nil; };
  NSColor* (*implementation)(id, SEL, NSColorSpace*) = none;
  class_addMethod(objc_getClass("GSPatternColor"), @selector(colorUsingColorSpace:), (IMP)implementation, "@@:@");
}

@end

@implementation NSColorSpace (Supplement)

+ (NSColorSpace*)sRGBColorSpace {
  return [NSColorSpace genericRGBColorSpace];
}

@end

@implementation NSFont (Supplement)

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight {
  return weight >= boldestRegular ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
}

+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(CGFloat)weight {
  return [NSFont userFixedPitchFontOfSize:size];
}

@end

@implementation NSImage (Supplement)

+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect))handler {
  NSImage* image = [[[NSImage alloc] initWithSize:size] autorelease];
  [image lockFocus];
  handler(NSMakeRect(0, 0, size.width, size.height));
  [image unlockFocus];
  return image;
}

+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
  NSImage* image = [self imageWithSize:NSMakeSize(14, 14)
                               flipped:NO
                        drawingHandler:^BOOL(NSRect rect) {
                          [[NSColor blackColor] setStroke];
                          [NSBezierPath strokeRect:NSInsetRect(rect, 2, 2)];
                          return YES;
                        }];
  [image setName:name];
  setProperty(image, descriptionKey, description);
  return image;
}

- (NSString*)accessibilityDescription {
  return property(self, descriptionKey);
}

- (void)setTemplate:(BOOL)isTemplate {
  setProperty(self, templateKey, [NSNumber numberWithBool:isTemplate]);
}

- (BOOL)isTemplate {
  return [property(self, templateKey) boolValue];
}

@end

// Colours, fonts, images and paths.
#pragma once

#import <AppKit/Strings.h>

#pragma clang assume_nonnull begin

@interface NSColorSpace : NSObject <NSSecureCoding>
@property(class, strong, readonly) NSColorSpace* sRGBColorSpace;
@end

@interface NSColor : NSObject <NSCopying, NSSecureCoding>
+ (NSColor*)colorWithSRGBRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
@property(class, strong, readonly) NSColor* clearColor;
@property(class, strong, readonly) NSColor* labelColor;
@property(class, strong, readonly) NSColor* secondaryLabelColor;
@property(class, strong, readonly) NSColor* controlAccentColor __attribute__((availability(macos, introduced=10.14)));
- (nullable NSColor*)colorUsingColorSpace:(NSColorSpace*)space;
- (void)getRed:(nullable CGFloat*)red
         green:(nullable CGFloat*)green
          blue:(nullable CGFloat*)blue
         alpha:(nullable CGFloat*)alpha;
- (void)setFill;
- (void)setStroke;
@property(readonly) CGColorRef CGColor;
@end

typedef CGFloat NSFontWeight;
APPKIT_EXTERN const NSFontWeight NSFontWeightRegular;
APPKIT_EXTERN const NSFontWeight NSFontWeightMedium;
APPKIT_EXTERN const NSFontWeight NSFontWeightSemibold;
APPKIT_EXTERN const NSFontWeight NSFontWeightHeavy;

@interface NSFont : NSObject <NSCopying, NSSecureCoding>
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size
                               weight:(NSFontWeight)weight __attribute__((availability(macos, introduced = 10.15)));
+ (NSFont*)menuBarFontOfSize:(CGFloat)size;
@property(class, readonly) CGFloat systemFontSize;
@end

@interface NSBezierPath : NSObject <NSCopying, NSSecureCoding>
+ (NSBezierPath*)bezierPath;
+ (NSBezierPath*)bezierPathWithOvalInRect:(NSRect)rect;
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)x yRadius:(CGFloat)y;
@property CGFloat lineWidth;
- (void)stroke;
- (void)fill;
@end

@interface NSImage : NSObject <NSCopying, NSSecureCoding>
+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect dstRect))drawingHandler;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description
    __attribute__((availability(macos, introduced = 11.0)));
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
@end

#pragma clang assume_nonnull end

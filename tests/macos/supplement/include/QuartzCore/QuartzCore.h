#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

/// A layer that only keeps its values. The view it belongs to paints its background. Colours are NSColor objects here.
@interface CALayer : NSObject {
 @private
  id backgroundColor_;
  CGFloat cornerRadius_;
}
- (CGColorRef)backgroundColor;
- (void)setBackgroundColor:(CGColorRef)color;
- (CGFloat)cornerRadius;
- (void)setCornerRadius:(CGFloat)radius;
@end

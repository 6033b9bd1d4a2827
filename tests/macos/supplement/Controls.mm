#import <AppKit/AppKit.h>

#include <cmath>

#include "tests/macos/supplement/Properties.h"

using roomlattice::gnustep::property;
using roomlattice::gnustep::setProperty;

namespace {

const char tintKey[] = "content tint";
const char linesKey[] = "maximum number of lines";
constexpr CGFloat sliderHeight = 15.0;
const char layoutWidthKey[] = "preferred layout width";

NSTextField* makeField(Class kind, NSString* text, BOOL bezeled) {
  NSTextField* field = [[[kind alloc] initWithFrame:NSMakeRect(0, 0, 100, 22)] autorelease];
  [field setStringValue:text];
  [field setBezeled:bezeled];
  [field setEditable:bezeled];
  [field setSelectable:bezeled];
  [field setDrawsBackground:bezeled];
  return field;
}

}  // namespace

@implementation NSButton (Supplement)

+ (NSButton*)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action {
  NSButton* button = [self buttonWithTitle:title target:target action:action];
  [button setButtonType:NSSwitchButton];
  return button;
}

+ (NSButton*)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action {
  NSButton* button = [[[self alloc] initWithFrame:NSMakeRect(0, 0, 90, 26)] autorelease];
  [button setTitle:title];
  [button setTarget:target];
  [button setAction:action];
  return button;
}

- (void)setContentTintColor:(NSColor*)color {
  setProperty(self, tintKey, color);
}

- (NSColor*)contentTintColor {
  return property(self, tintKey);
}

@end

@implementation NSSlider (Supplement)

- (void)sizeToFit {
  [self setFrameSize:NSMakeSize(NSWidth([self frame]), sliderHeight)];
}

+ (NSSlider*)sliderWithValue:(double)value
                    minValue:(double)minimum
                    maxValue:(double)maximum
                      target:(id)target
                      action:(SEL)action {
  NSSlider* slider = [[[self alloc] initWithFrame:NSMakeRect(0, 0, 150, 20)] autorelease];
  [slider setMinValue:minimum];
  [slider setMaxValue:maximum];
  [slider setDoubleValue:value];
  [slider setTarget:target];
  [slider setAction:action];
  return slider;
}

@end

@interface NSTextField (SupplementEditing)
@end

@implementation NSTextField (SupplementEditing)

/// AppKit takes over what is being edited before it answers.
- (NSString*)stringValue {
  [self validateEditing];
  return [[self cell] stringValue];
}

@end

/// GNUstep measures every text in one line.
@interface SupplementWrappingCell : NSTextFieldCell
@end

@implementation SupplementWrappingCell

- (NSSize)cellSizeForBounds:(NSRect)bounds {
  NSStringDrawingOptions options = NSStringDrawingUsesLineFragmentOrigin;
  const NSRect text = [[self attributedStringValue] boundingRectWithSize:bounds.size options:options];
  return NSMakeSize(std::ceil(NSWidth(text)), std::ceil(NSHeight(text)));
}

@end

@implementation NSTextField (Supplement)

+ (NSTextField*)labelWithString:(NSString*)text {
  return makeField(self, text, NO);
}

+ (NSTextField*)wrappingLabelWithString:(NSString*)text {
  NSTextField* field = [[[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, 100, 22)] autorelease];
  [field setCell:[[[SupplementWrappingCell alloc] initTextCell:text] autorelease]];
  [[field cell] setWraps:YES];
  [field setSelectable:YES];
  return field;
}

+ (NSTextField*)textFieldWithString:(NSString*)text {
  return makeField(self, text, YES);
}

- (void)setMaximumNumberOfLines:(NSInteger)lines {
  setProperty(self, linesKey, [NSNumber numberWithInteger:lines]);
}

- (NSInteger)maximumNumberOfLines {
  return [property(self, linesKey) integerValue];
}

- (void)setPreferredMaxLayoutWidth:(CGFloat)width {
  setProperty(self, layoutWidthKey, [NSNumber numberWithDouble:width]);
}

- (CGFloat)preferredMaxLayoutWidth {
  return [property(self, layoutWidthKey) doubleValue];
}

@end

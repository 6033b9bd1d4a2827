// Controls.
#pragma once

#import <AppKit/Views.h>

#pragma clang assume_nonnull begin

// <NSCell.h>, https://developer.apple.com/documentation/appkit/nscontrolsize
typedef NS_ENUM(NSUInteger, NSControlSize) {
  NSControlSizeRegular = 0,
  NSControlSizeSmall = 1,
  NSControlSizeMini = 2,
  NSControlSizeLarge __attribute__((availability(macos, introduced = 11.0))) = 3
};
typedef NSInteger NSControlStateValue;
// <NSCell.h>, https://developer.apple.com/documentation/appkit/nscontrolstatevalue
static const NSControlStateValue NSControlStateValueMixed = -1;
static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;
// <NSCell.h>, https://developer.apple.com/documentation/appkit/nscellimageposition
typedef NS_ENUM(NSUInteger, NSCellImagePosition) {
  NSNoImage = 0,
  NSImageOnly = 1,
  NSImageLeft = 2,
  NSImageRight = 3,
  NSImageBelow = 4,
  NSImageAbove = 5,
  NSImageOverlaps = 6,
  NSImageLeading = 7,
  NSImageTrailing = 8
};
// <NSButtonCell.h>, https://developer.apple.com/documentation/appkit/nsbezelstyle
typedef NS_ENUM(NSUInteger, NSBezelStyle) {
  NSBezelStyleAutomatic __attribute__((availability(macos, introduced = 14.0))) = 0,
  NSBezelStylePush = 1,
  NSBezelStyleFlexiblePush = 2,
};
// Renamed in the macOS 14 SDK; the old names stay as deprecated constants.
static const NSBezelStyle NSBezelStyleRounded = NSBezelStylePush;
static const NSBezelStyle NSBezelStyleRegularSquare = NSBezelStyleFlexiblePush;

@interface NSCell : NSObject <NSCopying, NSCoding>
@property NSLineBreakMode lineBreakMode;
@property BOOL usesSingleLineMode;
@property(readonly) NSSize cellSize;
- (NSSize)cellSizeForBounds:(NSRect)rect;
@end

@interface NSControl : NSView
@property(nullable, weak) id target;
@property(nullable) SEL action;
@property NSInteger tag;
@property(getter=isEnabled) BOOL enabled;
@property NSControlSize controlSize;
@property(nullable, strong) __kindof NSCell* cell;
@property(copy) NSString* stringValue;
@property double doubleValue;
@property(nullable, strong) NSFont* font;
@property NSTextAlignment alignment;
- (void)sizeToFit;
- (nullable NSText*)currentEditor;
@end

@interface NSSlider : NSControl
+ (instancetype)sliderWithValue:(double)value
                       minValue:(double)minValue
                       maxValue:(double)maxValue
                         target:(nullable id)target
                         action:(nullable SEL)action;
@end

@interface NSButton : NSControl
+ (instancetype)buttonWithTitle:(NSString*)title target:(nullable id)target action:(nullable SEL)action;
+ (instancetype)checkboxWithTitle:(NSString*)title target:(nullable id)target action:(nullable SEL)action;
@property(copy) NSString* title;
@property(copy) NSAttributedString* attributedTitle;
@property NSBezelStyle bezelStyle;
@property(getter=isBordered) BOOL bordered;
@property(nullable, strong) NSImage* image;
@property NSCellImagePosition imagePosition;
@property(nullable, copy) NSColor* contentTintColor __attribute__((availability(macos, introduced=10.14)));
@property BOOL allowsMixedState;
@property NSControlStateValue state;
@end

@interface NSPopUpButton : NSButton
- (instancetype)initWithFrame:(NSRect)buttonFrame pullsDown:(BOOL)flag;
- (void)addItemWithTitle:(NSString*)title;
- (void)selectItemAtIndex:(NSInteger)index;
@property(readonly) NSInteger indexOfSelectedItem;
@end

@interface NSColorWell : NSControl
@property(copy) NSColor* color;
@end

@interface NSImageView : NSControl
@property(nullable, strong) NSImage* image;
@end

@protocol NSControlTextEditingDelegate <NSObject>
@optional
- (BOOL)control:(NSControl*)control textView:(NSTextView*)textView doCommandBySelector:(SEL)commandSelector;
@end
@protocol NSTextFieldDelegate <NSControlTextEditingDelegate>
@end

// <NSTextFieldCell.h>, https://developer.apple.com/documentation/appkit/nstextfieldbezelstyle
typedef NS_ENUM(NSUInteger, NSTextFieldBezelStyle) { NSTextFieldSquareBezel = 0, NSTextFieldRoundedBezel = 1 };

@interface NSTextField : NSControl
+ (instancetype)labelWithString:(NSString*)stringValue;
+ (instancetype)wrappingLabelWithString:(NSString*)stringValue;
+ (instancetype)textFieldWithString:(NSString*)stringValue;
@property(nullable, copy) NSColor* textColor;
@property BOOL drawsBackground;
@property(getter=isBordered) BOOL bordered;
@property(getter=isBezeled) BOOL bezeled;
@property(getter=isEditable) BOOL editable;
@property(getter=isSelectable) BOOL selectable;
@property(nullable, weak) id<NSTextFieldDelegate> delegate;
@property NSTextFieldBezelStyle bezelStyle;
@property CGFloat preferredMaxLayoutWidth;
@property NSInteger maximumNumberOfLines;
@end

// <NSProgressIndicator.h>, https://developer.apple.com/documentation/appkit/nsprogressindicatorstyle
typedef NS_ENUM(NSUInteger, NSProgressIndicatorStyle) {
  NSProgressIndicatorStyleBar = 0,
  NSProgressIndicatorStyleSpinning = 1
};
@interface NSProgressIndicator : NSView
@property(getter=isIndeterminate) BOOL indeterminate;
@property NSControlSize controlSize;
@property NSProgressIndicatorStyle style;
- (void)startAnimation:(nullable id)sender;
- (void)stopAnimation:(nullable id)sender;
@end

@interface NSTabViewItem : NSObject <NSCoding>
- (instancetype)initWithIdentifier:(nullable id)identifier;
@property(copy) NSString* label;
@property(nullable, strong) NSView* view;
@property(nullable, weak) NSView* initialFirstResponder;
@end
@interface NSTabView : NSView
- (void)addTabViewItem:(NSTabViewItem*)tabViewItem;
@end

#pragma clang assume_nonnull end

// How text looks.
#pragma once

#import <AppKit/Declarations.h>

#pragma clang assume_nonnull begin

APPKIT_EXTERN NSAttributedStringKey const NSFontAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSForegroundColorAttributeName;

@interface NSString (NSStringDrawing)
- (NSSize)sizeWithAttributes:(nullable NSDictionary<NSAttributedStringKey, id>*)attributes;
@end

// <NSText.h>, https://developer.apple.com/documentation/appkit/nstextalignment
typedef NS_ENUM(NSInteger, NSTextAlignment) {
  NSTextAlignmentLeft = 0,
  NSTextAlignmentCenter = 1 + TARGET_CPU_X86_64,
  NSTextAlignmentRight = 2 - TARGET_CPU_X86_64,
  NSTextAlignmentJustified = 3,
  NSTextAlignmentNatural = 4
};
// <NSParagraphStyle.h>, https://developer.apple.com/documentation/appkit/nslinebreakmode
typedef NS_ENUM(NSUInteger, NSLineBreakMode) {
  NSLineBreakByWordWrapping = 0,
  NSLineBreakByCharWrapping,
  NSLineBreakByClipping,
  NSLineBreakByTruncatingHead,
  NSLineBreakByTruncatingTail,
  NSLineBreakByTruncatingMiddle
};

#pragma clang assume_nonnull end

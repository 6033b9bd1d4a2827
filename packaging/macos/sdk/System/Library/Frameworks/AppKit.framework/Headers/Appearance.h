// Light and dark, accessibility and animation, as far as views and windows share them.
#pragma once

#import <AppKit/Drawing.h>

#pragma clang assume_nonnull begin

typedef NSString* NSAppearanceName;
APPKIT_EXTERN const NSAppearanceName NSAppearanceNameAqua;
APPKIT_EXTERN const NSAppearanceName NSAppearanceNameDarkAqua __attribute__((availability(macos, introduced = 10.14)));

@interface NSAppearance : NSObject <NSSecureCoding>
+ (nullable NSAppearance*)appearanceNamed:(NSAppearanceName)name;
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)appearances
    __attribute__((availability(macos, introduced = 10.14)));
@end

@protocol NSAppearanceCustomization <NSObject>
@property(nullable, strong) NSAppearance* appearance;
@property(readonly, strong) NSAppearance* effectiveAppearance;
@end

@protocol NSAccessibility <NSObject>
@property(nullable, copy) NSString* accessibilityLabel;
@end

@protocol NSAnimatablePropertyContainer
- (instancetype)animator;
@end

#pragma clang assume_nonnull end

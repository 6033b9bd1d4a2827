#include "tests/macos/supplement/Application.h"

#import <AppKit/AppKit.h>

using roomlattice::gnustep::Look;

namespace {

std::optional<long> policyInForce;
Look lookInForce = Look::Light;
NSArray* namesAsked = nil;

}  // namespace

/// An appearance that matches what the test wants it to.
@interface SupplementAppearance : NSAppearance
@end

@implementation SupplementAppearance

- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray*)names {
  [namesAsked autorelease];
  namesAsked = [names copy];
  if (lookInForce == Look::Neither) {
    return nil;
  }
  NSString* name = lookInForce == Look::Dark ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua;
  return [names containsObject:name] ? name : nil;
}

@end

@implementation NSApplication (Supplement)

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
  policyInForce = static_cast<long>(policy);
  return YES;
}

- (NSAppearance*)effectiveAppearance {
  static NSAppearance* appearance = [[SupplementAppearance alloc] init];
  return appearance;
}

@end

namespace roomlattice::gnustep {

std::optional<long> activationPolicy() {
  return policyInForce;
}

NSArray* appearanceNamesAsked() {
  return namesAsked;
}

void setLook(Look look) {
  lookInForce = look;
}

}  // namespace roomlattice::gnustep

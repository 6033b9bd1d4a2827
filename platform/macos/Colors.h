#pragma once

#import <AppKit/AppKit.h>

#include "platform/Color.h"
#include "platform/View.h"

namespace roomlattice::platform::macos {

/// A colour of the sRGB space.
NSColor* toNSColor(const Color& color);

NSColor* toNSColor(const TextColor& color);

/// The components in sRGB; black, marked as such, for a colour without them.
Color toColor(NSColor* color);

}  // namespace roomlattice::platform::macos

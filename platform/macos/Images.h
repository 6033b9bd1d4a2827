#pragma once

#import <AppKit/AppKit.h>

#include "platform/Image.h"

namespace roomlattice::platform::macos {

/// An image that draws itself at the resolution of wherever it is shown.
NSImage* toNSImage(const Image& image);

NSImage* toNSImage(const SymbolImage& symbol);

}  // namespace roomlattice::platform::macos

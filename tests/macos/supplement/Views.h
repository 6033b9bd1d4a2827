#pragma once

#import <AppKit/AppKit.h>

namespace roomlattice::gnustep {

/// Paints what a view's layer shows behind it.
void paintLayer(NSView* view);

}  // namespace roomlattice::gnustep

#pragma once

#import <AppKit/AppKit.h>

#include <optional>

namespace roomlattice::gnustep {

/// How many pixels there are to a point. Infinitely many, where a test says nothing: then nothing is moved to a pixel.
void setBackingScale(std::optional<double> scale);

/// How often the window has been told that its shadow has another shape.
int shadowChanges(NSWindow* window);

/// Paints what a view's layer shows behind it.
void paintLayer(NSView* view);

}  // namespace roomlattice::gnustep

#pragma once

#import <AppKit/AppKit.h>

#include "platform/Color.h"

#include <optional>

namespace roomlattice::platform::macos {

/// Makes a view layer-backed and gives the layer a background, or none.
void setLayerBackground(NSView* view, const std::optional<Color>& background, double cornerRadius);

}  // namespace roomlattice::platform::macos

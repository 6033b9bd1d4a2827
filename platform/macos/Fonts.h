#pragma once

#import <AppKit/AppKit.h>

#include "platform/Font.h"
#include "platform/Geometry.h"

#include <string>

namespace roomlattice::platform::macos {

NSFont* toNSFont(const Font& font);

/// The typographic size of what toSingleLine makes of `text`.
Size textSize(const std::string& text, const Font& font);

}  // namespace roomlattice::platform::macos

#pragma once

#include "platform/Color.h"

#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// A colour as "#rrggbb", black where it has no sRGB form. Its alpha is left out.
std::string colorText(const Color& color);

/// The colour that is written that way, in lower or upper case; nothing where it is not.
std::optional<Color> colorFrom(const std::string& text);

}  // namespace roomlattice::platform::linux

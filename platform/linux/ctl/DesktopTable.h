#pragma once

#include "platform/ControlEndpoint.h"
#include "platform/Value.h"

#include <string>
#include <vector>

namespace roomlattice::platform::linux {

enum class Coloring { Off, On };

/// One line for each desktop, in columns: an asterisk for the active one, the number, the name, the colour, the uuid
/// and the display.
std::string desktopTable(const std::vector<DesktopState>& desktops, Coloring coloring);

/// A desktop for JSON; its number is null for a full-screen space.
Value desktopValue(const DesktopState& desktop);

}  // namespace roomlattice::platform::linux

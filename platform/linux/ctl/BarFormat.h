#pragma once

#include "platform/ControlEndpoint.h"

#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// Whether it is the name of a bar, or a text with a place to fill in.
bool isBarFormat(const std::string& format);

/// What a bar wants to read once, before the first line; often nothing.
std::string barFormatHeader(const std::string& format);

/// The line that shows the active one of `desktops` in a bar, with what means something to the bar made harmless in
/// names. An empty text in the bar's form where none is active.
std::string barFormatLine(const std::string& format, const std::vector<DesktopState>& desktops);

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/NativePlatform.h"
#include "platform/linux/system/CommandLine.h"
#include "platform/linux/system/TerminationSignals.h"

#include <string>

namespace roomlattice::platform::x11 {

/// What a start comes to where the program runs already on `display`: a user's opens the menu of that one, or there is
/// a line on standard error where it cannot be reached; a session's leaves it alone. Needs no event loop.
ExitStatus passOnStart(linux::Start start, const std::string& display, const linux::TerminationSignals& signals);

}  // namespace roomlattice::platform::x11

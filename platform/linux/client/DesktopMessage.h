#pragma once

#include "platform/ControlEndpoint.h"

#include <optional>
#include <systemd/sd-bus.h>
#include <vector>

namespace roomlattice::platform::linux {

/// Reads a desktop, a dictionary of variants, from where the message is read. Keys that are not known are passed over,
/// those that are missing leave what is there by default; nothing where there is no such dictionary, or at the end.
std::optional<DesktopState> readDesktop(sd_bus_message* message);

/// Reads an array of desktops.
std::vector<DesktopState> readDesktops(sd_bus_message* message);

}  // namespace roomlattice::platform::linux

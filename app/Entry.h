#pragma once

#include "platform/Platform.h"

namespace roomlattice {

/// Runs the program on `platform` until it is quit, as an accessory application; returns the exit status.
int runRoomlattice(platform::Platform& platform);

}  // namespace roomlattice

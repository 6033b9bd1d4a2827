#pragma once

#include "platform/NativePlatform.h"

namespace roomlattice::platform::macos {

/// macOS as a platform, to be made on the main thread.
std::unique_ptr<Platform> makePlatform();

}  // namespace roomlattice::platform::macos

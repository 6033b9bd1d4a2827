#pragma once

#include "platform/NativePlatform.h"

namespace roomlattice::platform::macos {

/// macOS as a platform: AppKit, Quartz events and the window server. All of it, the making too, is for the main thread.
std::unique_ptr<Platform> makePlatform();

}  // namespace roomlattice::platform::macos

#pragma once

#include "platform/System.h"

namespace roomlattice {

/// What the program has logged in the last ten minutes, by the log tool of macOS.
platform::LogQuery recentLogByTool();

}  // namespace roomlattice

#pragma once

#include <string>

namespace roomlattice::tests {

/// What the diagnostic log is read with, on the simulated desktop.
inline const std::string logTool = "/usr/bin/log";
inline const std::string logCommand = "log show --predicate 'process == \"Roomlattice\"' --last 10m --style compact";

}  // namespace roomlattice::tests

#pragma once

#include "platform/Platform.h"

#include <memory>
#include <variant>

namespace roomlattice::platform {

/// The status the process is to end with at once: all that was to be said has been.
struct ExitStatus {
  int code = 0;
};

/// Makes the platform of the system that the program is built for, or answers what the command line asks for. A toolkit
/// may take its own arguments out of `argc` and `argv`, which must outlive the platform. Once in a process.
std::variant<std::unique_ptr<Platform>, ExitStatus> makeNativePlatform(int& argc, char** argv);

}  // namespace roomlattice::platform

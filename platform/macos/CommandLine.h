#pragma once

#include "platform/NativePlatform.h"

#include <optional>

namespace roomlattice::platform::macos {

/// Answers --help and --version on standard output. Nothing for all else, which is the system's: it hands arguments of
/// its own to applications that are opened, and takes settings for AppKit from there.
std::optional<ExitStatus> answerCommandLine(int argc, const char* const* argv);

}  // namespace roomlattice::platform::macos

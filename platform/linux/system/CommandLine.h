#pragma once

#include "platform/NativePlatform.h"

#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Asks for the log lines of the last ten minutes.
inline constexpr const char* recentLogOption = "--recent-log";

/// How the program came to be started.
enum class Start { ByUser, AtLogin };

Start startOf(int argc, const char* const* argv);

/// Answers the options that need no desktop on standard output, and an option that is not known on standard error.
/// Nothing when the program is to run.
std::optional<ExitStatus> answerCommandLine(int argc, const char* const* argv);

/// Writes one line, with the program's name before it, to standard error.
void printError(const std::string& message);

}  // namespace roomlattice::platform::linux

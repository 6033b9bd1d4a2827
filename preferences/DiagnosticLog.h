#pragma once

#include "platform/System.h"

#include <cstddef>
#include <string>

namespace roomlattice {

/// Runs the query and returns what it printed, or a text that stands in for nothing or for a tool that cannot be run.
/// Blocks until the tool has finished; may be called from any thread.
std::string gatherDiagnosticLog(platform::System& system, const platform::LogQuery& query);

/// The number of lines in `text` that are not empty.
std::size_t countLogLines(const std::string& text);

}  // namespace roomlattice

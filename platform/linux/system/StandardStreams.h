#pragma once

#include <string_view>

namespace roomlattice::platform::linux {

/// Opens the null device in place of the standard streams that whoever started the process has closed, so that no other
/// file gets their numbers, and lets no write to a pipe or terminal on standard error wait, whoever in the process
/// writes. Other processes that have it are not concerned. To be called first of all, while there is one thread.
void prepareStandardStreams();

/// Writes a line, given with its end, to standard error and never waits. What standard error does not take at once is
/// lost there; how many lines that were is told before the next one that finds room. Any thread.
void writeToStandardError(std::string_view line);

/// Writes as much as `file` takes at once, and gives how much that was. May be called by signal handlers.
std::size_t writeAtOnce(int file, std::string_view text);

}  // namespace roomlattice::platform::linux

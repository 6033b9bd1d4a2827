#pragma once

#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Lets the process end with a line on standard error and status 1, instead of a crash, where memory or anything else
/// has run out that nothing can do without.
void endWithALineWhereNothingHelps();

/// What the limits of the process leave too little of for a program with windows, in words; nothing where they suffice.
/// Raises the number of files that may be open, and stacks, as far as that is allowed. To be called while there is one
/// thread.
std::optional<std::string> lackOfResources();

}  // namespace roomlattice::platform::linux

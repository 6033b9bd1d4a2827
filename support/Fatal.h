#pragma once

#include <string_view>

namespace roomlattice {

/// Stops the program at once with `message` on standard error. Only for what cannot happen on a working system;
/// everything else degrades to its documented fallback.
[[noreturn]] void fatal(std::string_view message);

}  // namespace roomlattice

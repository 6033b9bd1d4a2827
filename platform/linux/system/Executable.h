#pragma once

#include <filesystem>

namespace roomlattice::platform::linux {

/// A link that leads to the program's own file, also after that was replaced by a newer one (proc(5)).
inline constexpr const char* ownExecutable = "/proc/self/exe";

/// Where the file behind such a link is, or was: the kernel marks the path of one that has been replaced, as by an
/// update. Empty when it cannot be told.
std::filesystem::path pathOfExecutable(const std::filesystem::path& link = ownExecutable);

}  // namespace roomlattice::platform::linux

#pragma once

#include <optional>
#include <string>

namespace roomlattice::platform::x11 {

/// Why the file that holds the user's permission to use X servers (XAUTHORITY, or .Xauthority at home, as Xau(3) has
/// it) is not to be read, in words; nothing where it may be, or is not there. Libraries read it to its end, which what
/// is no ordinary file need not have.
std::optional<std::string> unusableAuthorityFile();

}  // namespace roomlattice::platform::x11

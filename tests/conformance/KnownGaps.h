#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace roomlattice::tests {

/// Why a backend is known to fail a conformance test ("Suite.Name"); nothing when it is to pass.
std::optional<std::string> knownGap(std::string_view backend, std::string_view test);

}  // namespace roomlattice::tests

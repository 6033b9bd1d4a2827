#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Nothing when it is not set, or empty.
inline std::optional<std::string> environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? std::nullopt : std::optional<std::string>(value);
}

}  // namespace roomlattice::platform::linux

#pragma once

#include <cstdint>
#include <string_view>

namespace roomlattice::platform::x11 {

/// FNV-1a over the bytes of `text`, cut to 63 bits and never 0: an identifier that is the same in every run and fits a
/// signed integer.
constexpr std::uint64_t stableHash(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (const char character : text) {
    hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
  }
  hash &= 0x7fffffffffffffffU;
  return hash == 0 ? 1 : hash;
}

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/Dispatcher.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace roomlattice::tests {

/// Chance that comes out alike for a seed wherever it is run, which the distributions of the standard library do not
/// promise.
class Randomness {
 public:
  explicit Randomness(std::uint64_t seed) : engine_(seed) {}

  std::size_t below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }

  /// In whole nanoseconds, so that two hardly ever fall together.
  platform::Duration upTo(platform::Duration longest) {
    return platform::Duration(below(static_cast<std::size_t>(longest.count()) + 1));
  }

  bool outOf(std::size_t tries) { return below(tries) == 0; }

  /// From 0 to 1.
  double fraction() { return static_cast<double>(below(1001)) / 1000.0; }

  template <class T>
  const T& oneOf(const std::vector<T>& choices) {
    return choices[below(choices.size())];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace roomlattice::tests

#pragma once

#include <chrono>
#include <ctime>
#include <optional>

namespace roomlattice::platform::linux {

/// How long a part of the start may take: where this object still lives after that, the process ends with a line and
/// status 1, whatever the main thread waits for, be it in a library. One at a time; SIGRTMIN is its own.
class StartLimit {
 public:
  /// `reason` is what the line says, a literal.
  StartLimit(std::chrono::milliseconds limit, const char* reason);
  StartLimit(const StartLimit&) = delete;
  StartLimit& operator=(const StartLimit&) = delete;
  ~StartLimit();

 private:
  std::optional<timer_t> timer_;
};

}  // namespace roomlattice::platform::linux

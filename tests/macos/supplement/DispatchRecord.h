#pragma once

#include <cstdint>
#include <vector>

namespace roomlattice::gnustep {

/// How a timer source was set up.
struct TimerRecord {
  std::uint64_t interval = 0;  // nanoseconds
  std::uint64_t leeway = 0;    // nanoseconds

  bool operator==(const TimerRecord&) const = default;
};

/// The timer sources that are running.
std::vector<TimerRecord> runningTimers();

/// The identifier of the global queue last asked for.
std::intptr_t lastGlobalQueue();

}  // namespace roomlattice::gnustep

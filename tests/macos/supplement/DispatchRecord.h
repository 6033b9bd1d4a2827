#pragma once

#include <chrono>
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

/// Puts the clock of the machine's uptime forward.
void letUptimePass(std::chrono::nanoseconds duration);

/// The identifier of the global queue last asked for.
std::intptr_t lastGlobalQueue();

}  // namespace roomlattice::gnustep

#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>

namespace roomlattice::benchmarks {

/// What the kernel counts of a process. All figures of a process that has gone are 0.
class ProcessFigures {
 public:
  explicit ProcessFigures(pid_t process) : folder_("/proc/" + std::to_string(process)) {}

  /// The processor time of its threads.
  std::chrono::nanoseconds processorTime() const;

  /// How often its threads have waited for something.
  long wakeUps() const;

  /// The proportional set size, in KiB.
  long memory() const;

 private:
  std::string folder_;
};

}  // namespace roomlattice::benchmarks

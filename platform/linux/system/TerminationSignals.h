#pragma once

#include "platform/Registration.h"

#include <functional>

namespace roomlattice::platform::linux {

/// The signals that ask a process to end (SIGTERM, SIGINT, SIGHUP), as an event of the main thread. A second one of the
/// same kind ends the process the hard way. One object in a process.
///
/// Writing to a closed pipe or beyond a size limit becomes an ordinary error as well: neither a log that nobody reads
/// nor a settings file that may not grow is a reason to die.
class TerminationSignals {
 public:
  TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// Readable once a signal has come.
  int file() const;

  /// Calls `handler` once from the event loop when a signal has come, be it before this call. The registration must end
  /// before the Qt application.
  Registration observe(std::function<void()> handler) const;
};

}  // namespace roomlattice::platform::linux

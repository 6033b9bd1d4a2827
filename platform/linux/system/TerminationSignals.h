#pragma once

#include "platform/Registration.h"

#include <chrono>
#include <functional>

namespace roomlattice::platform::linux {

/// The signals that ask a process to end (SIGTERM, SIGINT, SIGHUP), as an event of the main thread. Where the process
/// has not ended four seconds after the first, whatever keeps it from that, it ends the hard way with status 1; one
/// that comes two seconds after the first or later has it end so at once. One object in a process; SIGALRM is its own.
///
/// Writing to a closed pipe, beyond a size limit or to a terminal from the background becomes an ordinary error or
/// nothing special as well: neither a log that nobody reads nor a settings file that may not grow is a reason to die or
/// to stop.
class TerminationSignals {
 public:
  TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// Waits until a signal has come, but not beyond `limit`. Gives whether one has.
  bool waitFor(std::chrono::milliseconds limit) const;

  /// Calls `handler` once from the event loop when a signal has come, be it before this call. The registration must end
  /// before the Qt application.
  Registration observe(std::function<void()> handler) const;
};

}  // namespace roomlattice::platform::linux

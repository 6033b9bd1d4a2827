#pragma once

#include <QSocketNotifier>
#include <functional>

namespace roomlattice::platform::x11 {

/// Lets the event loop hear of the signals by which sessions and shells end a program (SIGTERM, SIGINT, SIGHUP). To be
/// made before the process has threads; once at a time.
class TerminationSignals {
 public:
  /// `handler` is called from the event loop.
  explicit TerminationSignals(std::function<void()> handler);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  int readEnd_;
  QSocketNotifier notifier_;
};

}  // namespace roomlattice::platform::x11

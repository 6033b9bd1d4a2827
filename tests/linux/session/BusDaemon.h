#pragma once

#include "tests/linux/session/ChildProcess.h"
#include "tests/linux/session/Environment.h"

#include <filesystem>
#include <memory>
#include <string>

namespace roomlattice::tests {

/// A message bus of a test's own, in `folder`.
class BusDaemon {
 public:
  explicit BusDaemon(const std::filesystem::path& folder);

  /// Stays the same when it has stopped.
  const std::string& address() const { return address_; }

  /// Make it the session's bus, and the machine's: that one would bring the machine's sleep and its settings into the
  /// tests.
  Environment::Variables variables() const;

  void signal(int number) const { process_->signal(number); }
  void stop() { process_->kill(); }

 private:
  std::string address_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace roomlattice::tests

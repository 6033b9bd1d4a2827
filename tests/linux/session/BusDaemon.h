#pragma once

#include "tests/linux/session/ChildProcess.h"
#include "tests/linux/session/Environment.h"

#include <filesystem>
#include <memory>
#include <string>

namespace roomlattice::tests {

/// A message bus of a test's own, in `folder`. As long as this object lives the environment has it for the session's
/// bus, and for the machine's: that one would bring the machine's sleep and its settings into the tests.
class BusDaemon {
 public:
  explicit BusDaemon(const std::filesystem::path& folder);

  /// Stays the same when it has stopped.
  const std::string& address() const { return address_; }

  void signal(int number) const { process_->signal(number); }
  void stop() { process_->kill(); }

 private:
  std::string address_;
  Environment environment_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace roomlattice::tests

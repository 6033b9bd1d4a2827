#pragma once

#include "tests/linux/session/ChildProcess.h"
#include "tests/x11/session/SessionOptions.h"

#include <filesystem>
#include <memory>
#include <string>

namespace roomlattice::tests {

/// An X server of a test's own, with what belongs to it in `folder`. Throws ServerNotStarted.
class X11Server {
 public:
  X11Server(const SessionOptions& options, const std::filesystem::path& folder);

  const std::string& display() const { return display_; }

  ChildProcess& process() { return *process_; }

 private:
  std::unique_ptr<ChildProcess> process_;
  std::string display_;
};

}  // namespace roomlattice::tests

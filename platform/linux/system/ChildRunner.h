#pragma once

#include "platform/System.h"
#include "platform/linux/storage/FileDescriptor.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform::linux {

/// Runs child processes and collects what they write. Any thread.
class ChildRunner {
 public:
  ChildRunner();

  /// System::run. Gives what there is so far once interrupt was called.
  std::variant<ProcessOutput, LaunchError> run(const std::string& path, const std::vector<std::string>& arguments);

  /// Ends the runs under way and all later ones: their children are killed.
  void interrupt();

 private:
  std::string collect(int output, pid_t child) const;

  // Readable from interrupt on.
  FileDescriptor interruption_;
};

}  // namespace roomlattice::platform::linux

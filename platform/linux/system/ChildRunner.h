#pragma once

#include "platform/System.h"
#include "platform/linux/storage/FileDescriptor.h"

#include <chrono>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform::linux {

/// What a child process has written, and whether it ended by itself with status 0.
struct ChildResult {
  std::string bytes;
  bool succeeded = false;
};

/// Runs child processes and collects what they write. They end with this process, however it ends. Any thread.
class ChildRunner {
 public:
  enum class ErrorOutput { WithOutput, Discarded };

  struct Options {
    ErrorOutput errorOutput = ErrorOutput::WithOutput;
    /// How long it may take until it has exited, whether it still writes or not; a child that takes longer is killed,
    /// with all it has started.
    std::optional<std::chrono::milliseconds> limit;
  };

  ChildRunner();

  /// Runs the executable at `path` and waits until its output has ended and it has exited, in that order. Gives what
  /// there is so far once the limit has passed or interrupt was called.
  std::variant<ChildResult, LaunchError> run(const std::string& path, const std::vector<std::string>& arguments,
                                             const Options& options) const;

  /// Ends the runs under way and all later ones: their children are killed, with all they have started.
  void interrupt();

 private:
  using Deadline = std::optional<std::chrono::steady_clock::time_point>;

  /// False when waitFor gave that before the output had ended.
  bool collect(const FileDescriptor& output, Deadline deadline, std::string& bytes) const;
  /// Until `source` is readable. False once it is too late or interrupt was called.
  bool waitFor(const FileDescriptor& source, Deadline deadline) const;

  // Readable from interrupt on.
  FileDescriptor interruption_;
};

}  // namespace roomlattice::platform::linux

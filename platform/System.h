#pragma once

#include "platform/Registration.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform {

/// What a child process wrote until it closed its output, standard output and standard error together.
struct ProcessOutput {
  std::string bytes;
};

/// A child process that could not be started, with the platform's description of why.
struct LaunchError {
  std::string localizedDescription;
};

/// How to get at log lines: a tool with its arguments, and the same as a user would type it.
struct LogQuery {
  std::string executable;
  std::vector<std::string> arguments;
  std::string command;
};

enum class ActivityKind {
  /// The user waits for it: timers are not throttled; the idle system may still sleep.
  UserInitiatedAllowingIdleSystemSleep,
};

/// The log, child processes, the pasteboard and process activities.
class System {
 public:
  virtual ~System() = default;

  /// Writes one line, given without its end, to the system log, which stamps it.
  virtual void log(const std::string& line) = 0;

  /// Runs the executable at `path` and blocks until its output has ended and it has exited, in that order. The exit
  /// status is not looked at. May be called from any thread.
  virtual std::variant<ProcessOutput, LaunchError> run(const std::string& path,
                                                       const std::vector<std::string>& arguments) = 0;

  /// How to get at what the program has logged in the last ten minutes, in this run and in earlier ones.
  virtual LogQuery recentLog() const = 0;

  /// Replaces the contents of the general pasteboard by plain text.
  virtual void setPasteboardString(const std::string& text) = 0;

  /// Asks the system to treat the process as `kind` until the registration ends. `reason` is for people.
  virtual Registration beginActivity(ActivityKind kind, const std::string& reason) = 0;
};

}  // namespace roomlattice::platform

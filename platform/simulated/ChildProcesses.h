#pragma once

#include "platform/Dispatcher.h"
#include "platform/System.h"

#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform::simulated {

/// An executable: what comes of a launch with some arguments, and how long it runs.
struct Executable {
  using Outcome = std::variant<ProcessOutput, LaunchError>;

  std::function<Outcome(const std::vector<std::string>& arguments)> run;
  Duration duration{0};
};

/// The machine's executables by path, and what was launched. Nothing stands at other paths: launching them fails.
class ChildProcesses {
 public:
  struct Launch {
    std::string path;
    std::vector<std::string> arguments;

    bool operator==(const Launch&) const = default;
  };

  void install(const std::string& path, Executable executable);

  /// An executable that prints `output` whatever its arguments are.
  void install(const std::string& path, std::string output, Duration duration = Duration::zero());

  /// Takes what is at `path` away.
  void remove(const std::string& path);

  /// `spend` is called with the time the process runs.
  Executable::Outcome launch(const std::string& path, const std::vector<std::string>& arguments,
                             const std::function<void(Duration)>& spend);

  /// Every attempt, in order.
  const std::vector<Launch>& launches() const { return launches_; }

 private:
  std::map<std::string, Executable> executables_;
  std::vector<Launch> launches_;
};

}  // namespace roomlattice::platform::simulated

#include "platform/simulated/ChildProcesses.h"

#include <utility>

namespace roomlattice::platform::simulated {

void ChildProcesses::install(const std::string& path, Executable executable) {
  executables_[path] = std::move(executable);
}

void ChildProcesses::install(const std::string& path, std::string output, Duration duration) {
  install(path,
          {.run = [output = std::move(output)](const auto&) { return ProcessOutput{output}; }, .duration = duration});
}

void ChildProcesses::remove(const std::string& path) {
  executables_.erase(path);
}

Executable::Outcome ChildProcesses::launch(const std::string& path, const std::vector<std::string>& arguments,
                                           const std::function<void(Duration)>& spend) {
  launches_.push_back({.path = path, .arguments = arguments});
  const auto found = executables_.find(path);
  if (found == executables_.end()) {
    return LaunchError{"There is no file " + path + "."};
  }
  const Executable executable = found->second;
  Executable::Outcome outcome = executable.run(arguments);
  spend(executable.duration);
  return outcome;
}

}  // namespace roomlattice::platform::simulated

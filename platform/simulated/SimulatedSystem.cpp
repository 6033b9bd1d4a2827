#include "platform/simulated/SimulatedSystem.h"

namespace roomlattice::platform::simulated {

void SimulatedSystem::log(const std::string& line) {
  desktop_.log().write(SimulatedDesktop::processName, line);
}

std::variant<ProcessOutput, LaunchError> SimulatedSystem::run(const std::string& path,
                                                              const std::vector<std::string>& arguments) {
  return desktop_.childProcesses().launch(path, arguments, [this](Duration duration) { dispatcher_.block(duration); });
}

void SimulatedSystem::setPasteboardString(const std::string& text) {
  desktop_.setPasteboard(text);
}

Registration SimulatedSystem::beginActivity(ActivityKind kind, const std::string& reason) {
  return activities_.add({.kind = kind, .reason = reason});
}

std::vector<SimulatedSystem::Activity> SimulatedSystem::activities() const {
  std::vector<Activity> activities;
  activities_.forEach([&](const Activity& activity) { activities.push_back(activity); });
  return activities;
}

}  // namespace roomlattice::platform::simulated

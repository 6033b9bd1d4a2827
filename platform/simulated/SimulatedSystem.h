#pragma once

#include "platform/System.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedDispatcher.h"
#include "support/LogTool.h"
#include "support/RegistrationList.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedSystem final : public System {
 public:
  struct Activity {
    ActivityKind kind;
    std::string reason;

    bool operator==(const Activity&) const = default;
  };

  SimulatedSystem(SimulatedDesktop& desktop, SimulatedDispatcher& dispatcher)
      : desktop_(desktop), dispatcher_(dispatcher) {}

  void log(const std::string& line) override;
  /// Blocks its caller for as long as the executable runs; see SimulatedDispatcher.
  std::variant<ProcessOutput, LaunchError> run(const std::string& path,
                                               const std::vector<std::string>& arguments) override;
  LogQuery recentLog() const override { return recentLogByTool(); }
  void setPasteboardString(const std::string& text) override;
  Registration beginActivity(ActivityKind kind, const std::string& reason) override;

  /// Those under way.
  std::vector<Activity> activities() const;

 private:
  SimulatedDesktop& desktop_;
  SimulatedDispatcher& dispatcher_;
  RegistrationList<Activity> activities_;
};

}  // namespace roomlattice::platform::simulated

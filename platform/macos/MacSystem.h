#pragma once

#include "platform/System.h"
#include "support/LogTool.h"

namespace roomlattice::platform::macos {

class MacSystem final : public System {
 public:
  void log(const std::string& line) override;
  std::variant<ProcessOutput, LaunchError> run(const std::string& path,
                                               const std::vector<std::string>& arguments) override;
  LogQuery recentLog() const override { return recentLogByTool(); }
  void setPasteboardString(const std::string& text) override;
  Registration beginActivity(ActivityKind kind, const std::string& reason) override;
};

}  // namespace roomlattice::platform::macos

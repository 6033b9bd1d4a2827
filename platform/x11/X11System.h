#pragma once

#include "platform/System.h"
#include "platform/x11/ChildRunner.h"

namespace roomlattice::platform::x11 {

/// The log is standard error, each line stamped with time, program and process. The pasteboard is the clipboard.
class X11System final : public System {
 public:
  X11System();

  void log(const std::string& line) override;
  std::variant<ProcessOutput, LaunchError> run(const std::string& path,
                                               const std::vector<std::string>& arguments) override;
  void setPasteboardString(const std::string& text) override;
  Registration beginActivity(ActivityKind kind, const std::string& reason) override;

  /// Lets no run keep the process from ending.
  void interruptRuns() { children_.interrupt(); }

 private:
  ChildRunner children_;
};

}  // namespace roomlattice::platform::x11

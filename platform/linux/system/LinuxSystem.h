#pragma once

#include "platform/System.h"
#include "platform/linux/system/ChildRunner.h"
#include "platform/linux/system/SystemLog.h"

namespace roomlattice::platform::linux {

/// The query itself where its tool is installed; elsewhere the program asks itself.
LogQuery orOwnLog(LogQuery tool);

/// The pasteboard is the clipboard.
class LinuxSystem final : public System {
 public:
  explicit LinuxSystem(SystemLog log = {});

  void log(const std::string& line) override;
  /// For a minute at most: then the child is killed.
  std::variant<ProcessOutput, LaunchError> run(const std::string& path,
                                               const std::vector<std::string>& arguments) override;
  LogQuery recentLog() const override;
  void setPasteboardString(const std::string& text) override;
  Registration beginActivity(ActivityKind kind, const std::string& reason) override;

  /// Lets no run keep the process from ending.
  void interruptRuns() { children_.interrupt(); }

  /// Waits until the log has all that was written to it, for a second at most.
  void finishLog() const { log_.waitUntilWritten(LogWriter::endLimit); }

 private:
  SystemLog log_;
  ChildRunner children_;
};

}  // namespace roomlattice::platform::linux

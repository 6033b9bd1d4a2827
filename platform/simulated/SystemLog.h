#pragma once

#include "platform/simulated/VirtualTime.h"

#include <string>
#include <vector>

namespace roomlattice::platform::simulated {

struct LogLine {
  Duration at{0};  // on the wall clock
  std::string process;
  std::string text;

  bool operator==(const LogLine&) const = default;
};

/// The log of the whole machine.
class SystemLog {
 public:
  explicit SystemLog(const VirtualTime& time) : time_(time) {}

  void write(const std::string& process, const std::string& text);

  const std::vector<LogLine>& lines() const { return lines_; }

  /// The texts alone.
  std::vector<std::string> texts() const;

  /// What the log tool prints for `show --predicate 'process == "Name"' --last 10m --style compact`: a line for each of
  /// that process within that time, with its stamp in seconds. Without a predicate or a time it prints all.
  std::string show(const std::vector<std::string>& arguments) const;

 private:
  const VirtualTime& time_;
  std::vector<LogLine> lines_;
};

}  // namespace roomlattice::platform::simulated

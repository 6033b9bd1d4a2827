#pragma once

#include "platform/Value.h"
#include "tests/linux/session/ChildProcess.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// The program itself, started in the session that the environment points to.
class Program {
 public:
  explicit Program(const std::vector<std::string>& arguments = {});

  /// Started by a shell: `script` prepares what it inherits, and then becomes it by `exec "$0"`.
  static Program throughShell(const std::string& script);

  ChildProcess& process() { return process_; }

  /// Waits until it would take a signal that asks it to end for more than its default.
  bool handlesSignals() const;

  /// Waits until its status item is to be seen.
  bool isUp();

  /// Waits until a line with that text is in its log.
  bool hasLogged(const std::string& text);

  /// Waits until it has taken note of a desktop in its settings.
  bool knowsDesktop(const std::string& uuid) const;

  /// What its settings file now holds under `key`.
  static std::optional<platform::Value> setting(const std::string& key);

  /// Waits until it ends; nothing when it does not.
  std::optional<int> exitStatus() { return process_.waitForExitStatus(); }

  /// What it wrote to standard error for people, without what it logs.
  std::vector<std::string> complaints() const;

  static std::filesystem::path settingsFile();

 private:
  struct Command {
    std::vector<std::string> words;
  };
  explicit Program(const Command& command) : process_(command.words) {}

  bool showsStatusItem();

  ChildProcess process_;
};

}  // namespace roomlattice::tests

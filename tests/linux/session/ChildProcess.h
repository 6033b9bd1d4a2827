#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace roomlattice::tests {

/// A program that the tests run. It is killed with this object, and also when the test process dies.
class ChildProcess {
 public:
  /// Starts `arguments[0]`, looked up in $PATH, with standard output and error going to files of its own.
  explicit ChildProcess(const std::vector<std::string>& arguments);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t id() const { return id_; }
  bool isRunning();

  void signal(int number) const;

  /// Kills it and waits for its end.
  void kill();

  /// What waitpid reports; nothing when it still runs when `limit` has passed.
  std::optional<int> waitForEnd(std::chrono::milliseconds limit = std::chrono::seconds(30));

  /// The exit status, or 128 plus the number of the signal it died of.
  std::optional<int> waitForExitStatus(std::chrono::milliseconds limit = std::chrono::seconds(30));

  /// What it has written so far.
  std::string output() const;
  std::string errorOutput() const;

 private:
  pid_t id_ = -1;
  int output_ = -1;
  int errorOutput_ = -1;
  std::optional<int> status_;
};

/// Runs a program to its end and gives what it wrote to standard output. Throws when it fails.
std::string outputOf(const std::vector<std::string>& arguments);

}  // namespace roomlattice::tests

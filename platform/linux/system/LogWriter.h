#pragma once

#include "platform/linux/storage/BackgroundWork.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace roomlattice::platform::linux {

/// Brings lines to a place that may take long for them, such as a file on a slow disk, by a thread of its own: whoever
/// adds one waits for nothing. Of lines that come while more than `mostLines` wait only the number is kept.
class LogWriter {
 public:
  static constexpr std::size_t mostLines = 1000;
  /// How long the end of this object waits for what is still to be written.
  static constexpr std::chrono::milliseconds endLimit{1000};

  /// Writes a line, given with its end; called by the thread, and what it uses must live as long as itself.
  using Write = std::function<void(const std::string& line)>;

  explicit LogWriter(Write write);
  LogWriter(const LogWriter&) = delete;
  LogWriter& operator=(const LogWriter&) = delete;
  ~LogWriter();

  /// Any thread.
  void add(std::string line);

  /// Waits until all that was added is written, but not beyond `limit`.
  void waitUntilWritten(std::chrono::milliseconds limit) const { thread_.waitUntilDone(limit); }

 private:
  struct Queue;

  std::shared_ptr<Queue> queue_;
  BackgroundWork thread_;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/ControlEndpoint.h"
#include "platform/linux/bus/MessagePointer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <systemd/sd-bus.h>
#include <variant>
#include <vector>

namespace roomlattice::platform::linux {

/// Roomlattice as another program reaches it: over the session bus, without a toolkit or an event loop.
class RunningProgram {
 public:
  /// None runs, or there is no bus to find it on; for people.
  struct NotRunning {
    std::string reason;
  };
  /// It did not do what was asked; for people.
  struct Refused {
    std::string reason;
  };
  struct Done {};

  template <class T>
  using Answer = std::variant<T, Refused, NotRunning>;

  /// The program of `display`, or of any where it is empty.
  explicit RunningProgram(const std::string& display);

  /// Whether there is a bus to find it on.
  bool isReachable() const { return bus_ != nullptr; }

  /// Calls a method whose arguments are texts, and waits for the answer.
  Answer<Done> call(const char* method, const std::vector<std::string>& arguments = {});

  Answer<std::vector<DesktopState>> desktops();

  struct Change {
    std::string kind;
    DesktopState desktop;
  };

  /// What watch tells. Either may be empty.
  struct Watcher {
    std::function<void(const Change&)> changed = [](const Change&) {};
    /// The program has come or gone.
    std::function<void(bool isRunning)> ownerChanged = [](bool) {};
  };

  /// Tells what happens until `isEnough` says so, which is asked after each thing told, or nobody reads standard output
  /// any more. False where there is no bus, or none any more.
  bool watch(const Watcher& watcher, const std::function<bool()>& isEnough);

 private:
  struct Close {
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
  };

  Answer<MessagePointer> send(const MessagePointer& question);

  std::string name_;
  std::unique_ptr<sd_bus, Close> bus_;
};

}  // namespace roomlattice::platform::linux

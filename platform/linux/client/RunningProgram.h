#pragma once

#include "platform/ControlEndpoint.h"
#include "platform/linux/bus/BusPointer.h"
#include "platform/linux/bus/MessagePointer.h"

#include <chrono>
#include <functional>
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

  /// The bus lets anybody in at once where it works; to the program D-Bus gives this time.
  static constexpr std::chrono::milliseconds usualBusLimit{5000};
  static constexpr std::chrono::milliseconds usualAnswerLimit{25000};

  /// The program of `display`, or of any where it is empty. Neither the bus nor an answer is waited for any longer.
  explicit RunningProgram(const std::string& display, std::chrono::milliseconds answerLimit = usualAnswerLimit,
                          std::chrono::milliseconds busLimit = usualBusLimit);

  /// Whether there is a bus to find it on.
  bool isReachable() const { return bus_ != nullptr; }

  /// Calls a method whose arguments are texts, and waits for the answer.
  Answer<Done> call(const char* method, const std::vector<std::string>& arguments = {});

  Answer<std::vector<DesktopState>> desktops();

  struct Change {
    std::string kind;
    DesktopState desktop;
  };

  /// Called by `watch`. Either may be left out, and then does nothing; an empty function may not stand there.
  struct Watcher {
    std::function<void(const Change&)> changed = [](const Change&) {};
    /// The program has come or gone.
    std::function<void(bool isRunning)> ownerChanged = [](bool) {};
  };

  /// Tells what happens until `isEnough` says so, which is asked at first and after each thing told, or nobody reads
  /// standard output any more. Never refused; NotRunning where there is no bus, or none any more, or it does not
  /// answer.
  Answer<Done> watch(const Watcher& watcher, const std::function<bool()>& isEnough);

 private:
  /// What is wrong with the bus; nothing where it has let this client in.
  std::optional<NotRunning> busTrouble();
  Answer<MessagePointer> send(const MessagePointer& question);

  std::string name_;
  std::chrono::milliseconds answerLimit_;
  std::chrono::milliseconds busLimit_;
  BusPointer bus_;
};

}  // namespace roomlattice::platform::linux

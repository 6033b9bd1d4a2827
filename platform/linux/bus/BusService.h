#pragma once

#include "platform/linux/bus/MessageBus.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// A service on a message bus, known by a name that one program at a time owns. Signals are taken from that program
/// only.
class BusService {
 public:
  /// `ownerChanged` is called from the event loop when the service gets an owner, another one or none.
  BusService(
      MessageBus& bus, std::string name, std::function<void(bool hasOwner)> ownerChanged = [](bool) {});
  BusService(const BusService&) = delete;
  BusService& operator=(const BusService&) = delete;

  /// The calls of MessageBus, without a service or sender to name. The registrations must end before this object.
  Registration observeSignal(BusSignal signal, MessageBus::Handler handler);
  Registration call(BusCall call, std::chrono::milliseconds limit, MessageBus::Handler handler);
  std::optional<BusMessage> callAndWait(BusCall call, std::chrono::milliseconds limit);
  void send(BusCall call);

 private:
  void ownerNamed(const BusMessage& message);

  MessageBus& bus_;
  std::string name_;
  std::function<void(bool)> ownerChanged_;
  // The unique name of its connection; empty while there is none.
  std::string owner_;
  Registration ownerChanges_;
  Registration ownerQuestion_;
};

}  // namespace roomlattice::platform::linux

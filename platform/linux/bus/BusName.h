#pragma once

#include "platform/linux/bus/MessageBus.h"

#include <functional>
#include <string>

namespace roomlattice::platform::linux {

/// A name on a message bus by which others find this program as long as the object lives. It is not taken from another
/// program that has it.
class BusName {
 public:
  enum class Ownership { Ours, Refused };
  enum class WhenTaken {
    GiveUp,
    /// It becomes ours when the others have given it up.
    Wait,
  };

  /// `answered` is called from the event loop when the bus has decided, with Refused also where the name is waited for.
  /// Without a bus it never is. Calls that are made on the bus after this arrive after the name does.
  BusName(
      MessageBus& bus, std::string name, std::function<void(Ownership)> answered = [](Ownership) {},
      WhenTaken whenTaken = WhenTaken::GiveUp);
  ~BusName();
  BusName(const BusName&) = delete;
  BusName& operator=(const BusName&) = delete;

  const std::string& name() const { return name_; }

 private:
  static int answer(sd_bus_message* message, void* name, sd_bus_error* error);

  MessageBus& bus_;
  std::string name_;
  std::function<void(Ownership)> answered_;
  sd_bus_slot* question_ = nullptr;
};

}  // namespace roomlattice::platform::linux

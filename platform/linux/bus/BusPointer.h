#pragma once

#include <memory>
#include <string>
#include <systemd/sd-bus.h>

namespace roomlattice::platform::linux {

struct CloseBus {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};

/// A connection to a message bus.
using BusPointer = std::unique_ptr<sd_bus, CloseBus>;

/// Begins to connect to the bus at `address`, and waits for nothing. Null where that fails; errno then tells why.
BusPointer openBus(const std::string& address);

}  // namespace roomlattice::platform::linux

#pragma once

#include <memory>
#include <systemd/sd-bus.h>

namespace roomlattice::platform::linux {

struct UnrefMessage {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};

/// One reference to a message of the bus.
using MessagePointer = std::unique_ptr<sd_bus_message, UnrefMessage>;

}  // namespace roomlattice::platform::linux

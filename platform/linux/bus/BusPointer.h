#pragma once

#include <chrono>
#include <cstdint>
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

enum class Admission {
  Granted,
  /// The connection has broken.
  Refused,
  /// It was there, and the bus said nothing, until it was too late.
  Unanswered,
};

/// Waits until the bus lets this client in, but not beyond `end`.
Admission waitForAdmission(sd_bus* bus, std::chrono::steady_clock::time_point end);

/// What is left until `end`, in microseconds as the library counts; 0 once it is too late.
std::uint64_t microsecondsUntil(std::chrono::steady_clock::time_point end);

}  // namespace roomlattice::platform::linux

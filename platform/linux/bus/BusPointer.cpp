#include "platform/linux/bus/BusPointer.h"

#include <cerrno>

namespace roomlattice::platform::linux {
namespace {

int begin(sd_bus* bus, const std::string& address) {
  int result = sd_bus_set_address(bus, address.c_str());
  if (result >= 0) {
    result = sd_bus_set_bus_client(bus, 1);
  }
  return result < 0 ? result : sd_bus_start(bus);
}

}  // namespace

BusPointer openBus(const std::string& address) {
  sd_bus* made = nullptr;
  int result = sd_bus_new(&made);
  BusPointer bus(made);
  if (result >= 0) {
    result = begin(made, address);
  }
  if (result < 0) {
    bus.reset();
    errno = -result;
  }
  return bus;
}

}  // namespace roomlattice::platform::linux

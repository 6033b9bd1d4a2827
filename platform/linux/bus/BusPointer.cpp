#include "platform/linux/bus/BusPointer.h"

#include <algorithm>
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

Admission waitForAdmission(sd_bus* bus, std::chrono::steady_clock::time_point end) {
  while (sd_bus_is_ready(bus) == 0) {
    const int processed = sd_bus_process(bus, nullptr);
    const std::uint64_t left = microsecondsUntil(end);
    if (processed < 0) {
      return Admission::Refused;
    }
    if (left == 0) {
      return Admission::Unanswered;
    }
    if (processed == 0) {
      sd_bus_wait(bus, left);
    }
  }
  return sd_bus_is_ready(bus) > 0 ? Admission::Granted : Admission::Refused;
}

std::uint64_t microsecondsUntil(std::chrono::steady_clock::time_point end) {
  using std::chrono::microseconds;
  const auto left = std::chrono::ceil<microseconds>(end - std::chrono::steady_clock::now());
  return static_cast<std::uint64_t>(std::max<microseconds::rep>(left.count(), 0));
}

}  // namespace roomlattice::platform::linux

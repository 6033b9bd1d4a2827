#include "platform/linux/bus/BusAddress.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <systemd/sd-bus.h>

namespace roomlattice::platform::linux {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* sessionBusVariable = "DBUS_SESSION_BUS_ADDRESS";

std::optional<std::string>& hiddenAddress() {
  static std::optional<std::string> address;
  return address;
}

struct Close {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using BusPointer = std::unique_ptr<sd_bus, Close>;

std::uint64_t microsecondsUntil(Clock::time_point end) {
  const auto left = std::chrono::ceil<std::chrono::microseconds>(end - Clock::now());
  return static_cast<std::uint64_t>(std::max<std::chrono::microseconds::rep>(left.count(), 0));
}

/// True only where it can be connected to and then says nothing: everybody notices at once where there is no bus.
bool isMute(const std::string& address, std::chrono::milliseconds limit) {
  const auto end = Clock::now() + limit;
  sd_bus* made = nullptr;
  if (sd_bus_new(&made) < 0) {
    return false;
  }
  const BusPointer bus(made);
  if (sd_bus_set_address(made, address.c_str()) < 0 || sd_bus_set_bus_client(made, 1) < 0) {
    return false;
  }
  if (const int started = sd_bus_start(made); started < 0) {
    return started == -EAGAIN;  // as many wait already as may
  }
  while (sd_bus_is_ready(made) == 0) {
    const int processed = sd_bus_process(made, nullptr);
    const std::uint64_t left = microsecondsUntil(end);
    if (processed < 0 || left == 0) {
      return processed >= 0;
    }
    if (processed == 0) {
      sd_bus_wait(made, left);
    }
  }
  return false;
}

}  // namespace

std::optional<std::string> sessionBusAddress() {
  if (hiddenAddress()) {
    return hiddenAddress();
  }
  if (auto address = environmentVariable(sessionBusVariable)) {
    return address;
  }
  const auto folder = environmentVariable("XDG_RUNTIME_DIR");
  return folder ? std::optional("unix:path=" + *folder + "/bus") : std::nullopt;
}

std::string systemBusAddress() {
  return environmentVariable("DBUS_SYSTEM_BUS_ADDRESS").value_or("unix:path=/var/run/dbus/system_bus_socket");
}

Registration hideMuteSessionBus(std::chrono::milliseconds limit) {
  const std::optional<std::string> address = sessionBusAddress();
  if (!address || !isMute(*address, limit)) {
    return {};
  }
  const std::optional<std::string> former = environmentVariable(sessionBusVariable);
  hiddenAddress() = address;
  // No socket can be there.
  setenv(sessionBusVariable, "unix:path=/dev/null", 1);
  return Registration([former] {
    hiddenAddress().reset();
    if (former) {
      setenv(sessionBusVariable, former->c_str(), 1);
    } else {
      unsetenv(sessionBusVariable);
    }
  });
}

}  // namespace roomlattice::platform::linux

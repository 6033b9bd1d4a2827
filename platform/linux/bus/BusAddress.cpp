#include "platform/linux/bus/BusAddress.h"

#include "platform/linux/bus/BusMessage.h"
#include "platform/linux/bus/MessagePointer.h"
#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <systemd/sd-bus.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* sessionBusVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* accessibilityService = "org.a11y.Bus";
constexpr const char* accessibilityPath = "/org/a11y/bus";

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

/// A try to be let in by a bus.
struct Visit {
  BusPointer bus;
  /// True only where it can be connected to and then says nothing: everybody notices at once where there is no bus.
  bool isMute = false;
};

Visit visit(const std::string& address, Clock::time_point end) {
  sd_bus* made = nullptr;
  if (sd_bus_new(&made) < 0) {
    return {};
  }
  BusPointer bus(made);
  if (sd_bus_set_address(made, address.c_str()) < 0 || sd_bus_set_bus_client(made, 1) < 0) {
    return {};
  }
  if (const int started = sd_bus_start(made); started < 0) {
    return {.bus = nullptr, .isMute = started == -EAGAIN};  // as many wait already as may
  }
  while (sd_bus_is_ready(made) == 0) {
    const int processed = sd_bus_process(made, nullptr);
    const std::uint64_t left = microsecondsUntil(end);
    if (processed < 0 || left == 0) {
      return {.bus = nullptr, .isMute = processed >= 0};
    }
    if (processed == 0) {
      sd_bus_wait(made, left);
    }
  }
  return {.bus = std::move(bus)};
}

/// What answers a call is given to `isMute`, which may look further. A service that nobody offers is not mute.
bool isMuteService(sd_bus* bus, sd_bus_message* call, Clock::time_point end,
                   const std::function<bool(const BusMessage&)>& isMute) {
  const MessagePointer owner(call);
  sd_bus_message_set_auto_start(call, 0);
  sd_bus_message* answer = nullptr;
  const int result = sd_bus_call(bus, call, std::max<std::uint64_t>(microsecondsUntil(end), 1), nullptr, &answer);
  const MessagePointer answerOwner(answer);
  return result == -ETIMEDOUT || (result >= 0 && isMute(BusMessage(answer)));
}

/// The toolkit asks the service for people with disabilities, which is at-spi's (org.a11y.Bus), whether it is in use,
/// and then for the bus where that takes place.
bool isAccessibilityMute(sd_bus* bus, Clock::time_point end) {
  sd_bus_message* isEnabled = nullptr;
  sd_bus_message* getAddress = nullptr;
  if (sd_bus_message_new_method_call(bus, &isEnabled, accessibilityService, accessibilityPath,
                                     "org.freedesktop.DBus.Properties", "Get") < 0 ||
      sd_bus_message_append(isEnabled, "ss", "org.a11y.Status", "IsEnabled") < 0) {
    return false;
  }
  return isMuteService(bus, isEnabled, end, [&](const BusMessage& answer) {
    if (!answer.argument<bool>(0).value_or(false) ||
        sd_bus_message_new_method_call(bus, &getAddress, accessibilityService, accessibilityPath, accessibilityService,
                                       "GetAddress") < 0) {
      return false;
    }
    return isMuteService(bus, getAddress, end, [end](const BusMessage& given) {
      return visit(given.argument<std::string>(0).value_or(""), end).isMute;
    });
  });
}

/// As long as the result lives, the environment has an address there where no bus can be.
Registration leadNowhere(const char* variable, std::function<void()> whenOver) {
  const std::optional<std::string> former = environmentVariable(variable);
  setenv(variable, "unix:path=/dev/null", 1);
  return Registration([variable, former, whenOver = std::move(whenOver)] {
    whenOver();
    if (former) {
      setenv(variable, former->c_str(), 1);
    } else {
      unsetenv(variable);
    }
  });
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

Registration hideMuteBuses(std::chrono::milliseconds limit) {
  const auto end = Clock::now() + limit;
  const std::optional<std::string> address = sessionBusAddress();
  const Visit session = address ? visit(*address, end) : Visit();
  if (session.isMute) {
    hiddenAddress() = address;
    return leadNowhere(sessionBusVariable, [] { hiddenAddress().reset(); });
  }
  if (session.bus != nullptr && isAccessibilityMute(session.bus.get(), end)) {
    return leadNowhere("AT_SPI_BUS_ADDRESS", [] {});
  }
  return {};
}

}  // namespace roomlattice::platform::linux

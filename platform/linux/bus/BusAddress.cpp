#include "platform/linux/bus/BusAddress.h"

#include "platform/linux/bus/BusMessage.h"
#include "platform/linux/bus/BusPointer.h"
#include "platform/linux/bus/MessagePointer.h"
#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <systemd/sd-bus.h>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* sessionBusVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* accessibilityVariable = "AT_SPI_BUS_ADDRESS";
constexpr const char* accessibilityPath = "/org/a11y/bus";

std::optional<std::string>& hiddenAddress() {
  static std::optional<std::string> address;
  return address;
}

/// A try to be let in by a bus.
struct Visit {
  BusPointer bus;
  /// True only where it can be connected to and then says nothing: everybody notices at once where there is no bus.
  bool isMute = false;
};

Visit visit(const std::string& address, Clock::time_point end) {
  BusPointer bus = openBus(address);
  if (bus == nullptr) {
    return {.bus = nullptr, .isMute = errno == EAGAIN};  // as many wait already as may
  }
  const Admission admission = waitForAdmission(bus.get(), end);
  if (admission != Admission::Granted) {
    bus.reset();
  }
  return {.bus = std::move(bus), .isMute = admission == Admission::Unanswered};
}

/// A question to a service, if anybody offers it.
struct Question {
  const char* service;
  const char* path;
  const char* interface;
  const char* method;
  std::vector<const char*> arguments = {};
};

/// What came of it: a service that nobody offers is not mute, and gives no message, no more than an error does.
struct Answer {
  bool isMute = false;
  BusMessage message{nullptr};
};

Answer ask(sd_bus* bus, const Question& question, Clock::time_point end) {
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(bus, &call, question.service, question.path, question.interface, question.method) <
      0) {
    return {};
  }
  const MessagePointer owner(call);
  for (const char* argument : question.arguments) {
    sd_bus_message_append(call, "s", argument);
  }
  sd_bus_message_set_auto_start(call, 0);
  sd_bus_message* answer = nullptr;
  const int result = sd_bus_call(bus, call, std::max<std::uint64_t>(microsecondsUntil(end), 1), nullptr, &answer);
  const MessagePointer answerOwner(answer);
  return {.isMute = result == -ETIMEDOUT, .message = BusMessage(answer)};
}

/// The toolkit tells the registry on that bus of itself.
bool isAccessibilityBusMute(const std::string& address, Clock::time_point end) {
  const Visit bus = visit(address, end);
  return bus.isMute || (bus.bus != nullptr && ask(bus.bus.get(),
                                                  {.service = "org.a11y.atspi.Registry",
                                                   .path = "/org/a11y/atspi/registry",
                                                   .interface = "org.freedesktop.DBus.Peer",
                                                   .method = "Ping"},
                                                  end)
                                                  .isMute);
}

/// The toolkit asks the service in this order whether it is in use, and then for the bus where that takes place.
bool isAccessibilityServiceMute(sd_bus* bus, Clock::time_point end) {
  for (const char* property : {"IsEnabled", "ScreenReaderEnabled"}) {
    const Answer isInUse = ask(bus,
                               {.service = accessibilityService,
                                .path = accessibilityPath,
                                .interface = "org.freedesktop.DBus.Properties",
                                .method = "Get",
                                .arguments = {"org.a11y.Status", property}},
                               end);
    if (isInUse.isMute) {
      return true;
    }
    if (isInUse.message.argument<bool>(0).value_or(false)) {
      const Answer address = ask(bus,
                                 {.service = accessibilityService,
                                  .path = accessibilityPath,
                                  .interface = accessibilityService,
                                  .method = "GetAddress"},
                                 end);
      return address.isMute || isAccessibilityBusMute(address.message.argument<std::string>(0).value_or(""), end);
    }
  }
  return false;
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

bool isAccessibilityMute(std::chrono::milliseconds limit) {
  const auto end = Clock::now() + limit;
  const std::optional<std::string> address = sessionBusAddress();
  const Visit session = address ? visit(*address, end) : Visit();
  return session.isMute || (session.bus != nullptr && isAccessibilityServiceMute(session.bus.get(), end));
}

Registration hideMuteBuses(std::chrono::milliseconds limit, const std::string& accessibilityBus) {
  const auto end = Clock::now() + limit;
  const std::optional<std::string> address = sessionBusAddress();
  const Visit session = address ? visit(*address, end) : Visit();
  if (session.isMute) {
    hiddenAddress() = address;
    return leadNowhere(sessionBusVariable, [] { hiddenAddress().reset(); });
  }
  const std::string given = environmentVariable(accessibilityVariable).value_or(accessibilityBus);
  if ((!given.empty() && isAccessibilityBusMute(given, end)) ||
      (session.bus != nullptr && isAccessibilityServiceMute(session.bus.get(), end))) {
    return leadNowhere(accessibilityVariable, [] {});
  }
  return {};
}

}  // namespace roomlattice::platform::linux

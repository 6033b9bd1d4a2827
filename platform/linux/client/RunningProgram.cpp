#include "platform/linux/client/RunningProgram.h"

#include "platform/linux/client/DesktopMessage.h"
#include "platform/linux/control/ControlNames.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using namespace std::string_view_literals;

constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

/// What the bus says where nobody has the name.
bool meansNobody(const sd_bus_error& error) {
  const std::string_view name = error.name == nullptr ? "" : error.name;
  return name == SD_BUS_ERROR_SERVICE_UNKNOWN || name == SD_BUS_ERROR_NAME_HAS_NO_OWNER ||
         name == SD_BUS_ERROR_NO_REPLY || name == SD_BUS_ERROR_DISCONNECTED;
}

std::string ruleFor(const std::string& sender, std::string_view interface, std::string_view member,
                    const std::string& firstArgument) {
  std::string rule = "type='signal',sender='" + sender + "',interface='" + std::string(interface) + "',member='" +
                     std::string(member) + "'";
  return firstArgument.empty() ? rule : rule + ",arg0='" + firstArgument + "'";
}

struct Watch {
  const RunningProgram::Watcher& watcher;
  bool heard = false;
};

int changeCame(sd_bus_message* message, void* watch, sd_bus_error*) {
  const char* kind = nullptr;
  if (sd_bus_message_read_basic(message, 's', &kind) > 0) {
    if (const auto desktop = readDesktop(message)) {
      static_cast<Watch*>(watch)->watcher.changed({kind, *desktop});
      static_cast<Watch*>(watch)->heard = true;
    }
  }
  return 0;
}

int ownerCame(sd_bus_message* message, void* watch, sd_bus_error*) {
  const char* name = nullptr;
  const char* before = nullptr;
  const char* now = nullptr;
  if (sd_bus_message_read(message, "sss", &name, &before, &now) > 0) {
    static_cast<Watch*>(watch)->watcher.ownerChanged(*now != '\0');
    static_cast<Watch*>(watch)->heard = true;
  }
  return 0;
}

/// Waits until the bus has something, or standard output has lost its reader.
bool waitForBus(sd_bus* bus) {
  std::array<pollfd, 2> files{
      {{sd_bus_get_fd(bus), static_cast<short>(sd_bus_get_events(bus)), 0}, {STDOUT_FILENO, 0, 0}}};
  if (poll(files.data(), files.size(), -1) < 0) {
    return errno == EINTR;
  }
  return (files[1].revents & (POLLERR | POLLNVAL)) == 0;
}

}  // namespace

RunningProgram::RunningProgram(const std::string& display, std::chrono::milliseconds answerLimit,
                               std::chrono::milliseconds busLimit)
    : name_(controlName), answerLimit_(answerLimit), busLimit_(busLimit) {
  if (const std::string own = controlNameOfDisplay(display); !own.empty()) {
    name_ = own;
  }
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) >= 0) {
    bus_.reset(bus);
  }
}

std::optional<RunningProgram::NotRunning> RunningProgram::busTrouble() {
  if (bus_ == nullptr) {
    return NotRunning{"there is no session bus"};
  }
  const Admission admission = waitForAdmission(bus_.get(), std::chrono::steady_clock::now() + busLimit_);
  return admission == Admission::Granted ? std::nullopt : std::optional(NotRunning{"the session bus does not answer"});
}

RunningProgram::Answer<MessagePointer> RunningProgram::send(const MessagePointer& question) {
  if (auto trouble = busTrouble()) {
    return std::move(*trouble);
  }
  if (question == nullptr) {
    return NotRunning{"the session bus has gone"};
  }
  sd_bus_message_set_auto_start(question.get(), 0);
  sd_bus_error error{};
  sd_bus_message* answer = nullptr;
  const std::uint64_t limit = microsecondsUntil(std::chrono::steady_clock::now() + answerLimit_);
  const int result = sd_bus_call(bus_.get(), question.get(), std::max<std::uint64_t>(limit, 1), &error, &answer);
  MessagePointer owner(answer);
  if (result >= 0) {
    return owner;
  }
  const bool nobody = meansNobody(error) || result == -ETIMEDOUT || result == -ENOTCONN || result == -ECONNRESET;
  const std::string reason = error.message == nullptr ? "no answer" : error.message;
  sd_bus_error_free(&error);
  if (nobody) {
    return NotRunning{result == -ETIMEDOUT ? "Roomlattice does not answer" : "Roomlattice is not running"};
  }
  return Refused{reason};
}

RunningProgram::Answer<RunningProgram::Done> RunningProgram::call(const char* method,
                                                                  const std::vector<std::string>& arguments) {
  MessagePointer question;
  sd_bus_message* made = nullptr;
  if (bus_ != nullptr &&
      sd_bus_message_new_method_call(bus_.get(), &made, name_.c_str(), controlPath, controlInterface, method) >= 0) {
    question.reset(made);
    for (const std::string& argument : arguments) {
      if (sd_bus_message_append_basic(made, 's', argument.c_str()) < 0) {
        return Refused{"'" + argument + "' is not UTF-8"};
      }
    }
  }
  auto answer = send(question);
  if (auto* refused = std::get_if<Refused>(&answer)) {
    return std::move(*refused);
  }
  if (auto* notRunning = std::get_if<NotRunning>(&answer)) {
    return std::move(*notRunning);
  }
  return Done{};
}

RunningProgram::Answer<std::vector<DesktopState>> RunningProgram::desktops() {
  MessagePointer question;
  sd_bus_message* made = nullptr;
  if (bus_ != nullptr &&
      sd_bus_message_new_method_call(bus_.get(), &made, name_.c_str(), controlPath, propertiesInterface, "Get") >= 0) {
    question.reset(made);
    sd_bus_message_append(made, "ss", controlInterface, "Desktops");
  }
  auto answer = send(question);
  if (auto* refused = std::get_if<Refused>(&answer)) {
    return std::move(*refused);
  }
  if (auto* notRunning = std::get_if<NotRunning>(&answer)) {
    return std::move(*notRunning);
  }
  sd_bus_message* message = std::get<MessagePointer>(answer).get();
  if (sd_bus_message_enter_container(message, 'v', "aa{sv}") <= 0) {
    return Refused{"the answer is not understood; is it another version that runs?"};
  }
  return readDesktops(message);
}

RunningProgram::Answer<RunningProgram::Done> RunningProgram::watch(const Watcher& watcher,
                                                                   const std::function<bool()>& isEnough) {
  if (auto trouble = busTrouble()) {
    return std::move(*trouble);
  }
  const NotRunning gone{"the session bus has gone"};
  Watch watch{watcher};
  const std::string changes = ruleFor(name_, controlInterface, "Changed", "");
  const std::string owners = ruleFor("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged", name_);
  if (sd_bus_add_match(bus_.get(), nullptr, changes.c_str(), changeCame, &watch) < 0 ||
      sd_bus_add_match(bus_.get(), nullptr, owners.c_str(), ownerCame, &watch) < 0) {
    return gone;
  }
  while (!isEnough()) {
    int result = 0;
    do {
      watch.heard = false;
      result = sd_bus_process(bus_.get(), nullptr);
    } while (result > 0 && !watch.heard);
    if (result < 0) {
      return gone;
    }
    if (result == 0 && !waitForBus(bus_.get())) {
      break;
    }
  }
  return Done{};
}

}  // namespace roomlattice::platform::linux

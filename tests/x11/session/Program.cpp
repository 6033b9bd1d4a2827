#include "tests/x11/session/Program.h"

#include "platform/linux/storage/LinuxDefaults.h"
#include "tests/linux/session/Wait.h"
#include "tests/x11/session/ProgramWindows.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <regex>
#include <sstream>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;

std::vector<std::string> commandWith(const std::vector<std::string>& arguments) {
  std::vector<std::string> command{ROOMLATTICE_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

bool isLogged(const std::string& line) {
  static const std::regex stamp(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}[+-]\d{4} Roomlattice\[\d+\] .*)");
  return std::regex_match(line, stamp);
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments) : process_(commandWith(arguments)) {}

Program Program::throughShell(const std::string& script) {
  return Program(Command{{"sh", "-c", script, ROOMLATTICE_PROGRAM}});
}

bool Program::handlesSignals() const {
  return waitFor([this] {
    std::ifstream status("/proc/" + std::to_string(process_.id()) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("SigCgt:")) {
        return (std::stoull(line.substr(7), nullptr, 16) >> (SIGTERM - 1U) & 1U) != 0;
      }
    }
    return false;
  });
}

bool Program::isUp() {
  return waitFor([this] { return showsStatusItem() || !process_.isRunning(); }) && process_.isRunning();
}

bool Program::showsStatusItem() {
  const auto connection = X11Connection::open();
  return connection != nullptr && ProgramWindows(*connection, process_.id()).statusItem().has_value();
}

bool Program::hasLogged(const std::string& text) {
  return waitFor([&] { return process_.errorOutput().find(text) != std::string::npos || !process_.isRunning(); }) &&
         process_.errorOutput().find(text) != std::string::npos;
}

bool Program::knowsDesktop(const std::string& uuid) const {
  return waitFor([&] {
    const auto known = setting("KnownSpaceUUIDs");
    const auto uuids = known ? known->toStrings() : std::nullopt;
    return uuids && std::ranges::find(*uuids, uuid) != uuids->end();
  });
}

std::optional<platform::Value> Program::setting(const std::string& key) {
  return platform::linux::LinuxDefaults(settingsFile(), [](const std::string&) {}).object(key);
}

std::vector<std::string> Program::complaints() const {
  std::istringstream output(process_.errorOutput());
  std::vector<std::string> lines;
  for (std::string line; std::getline(output, line);) {
    if (!isLogged(line)) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::filesystem::path Program::settingsFile() {
  return platform::linux::LinuxDefaults::standardPath().value();
}

}  // namespace roomlattice::tests

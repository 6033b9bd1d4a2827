#include "platform/linux/system/CommandLine.h"

#include "platform/linux/system/StandardStreams.h"
#include "platform/linux/system/SystemLog.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace roomlattice::platform::linux {
namespace {

constexpr int usageError = 2;

constexpr const char* help =
    "Usage: roomlattice [OPTION]\n"
    "\n"
    "Makes virtual desktops easy to tell apart: a status item with the name and colour of the\n"
    "desktop in front, a menu of all desktops, and a label on each. Runs on the X11 display of\n"
    "DISPLAY, with a window manager that supports EWMH, until it is quit from its menu.\n"
    "\n"
    "  --help         print this text\n"
    "  --version      print the version\n"
    "  --recent-log   print what the program has logged in the last ten minutes\n"
    "\n"
    "Settings are kept in $XDG_CONFIG_HOME/roomlattice/settings.json (~/.config if not set), log\n"
    "lines in the journal and in $XDG_STATE_HOME/roomlattice/log (~/.local/state if not set).\n";

}  // namespace

std::optional<ExitStatus> answerCommandLine(int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      std::fputs(help, stdout);
      return ExitStatus{0};
    }
    if (argument == "--version") {
      std::puts("roomlattice " ROOMLATTICE_VERSION);
      return ExitStatus{0};
    }
    if (argument == recentLogOption) {
      std::fputs(recentLog(std::chrono::minutes(10)).c_str(), stdout);
      return ExitStatus{0};
    }
    printError("unknown option '" + std::string(argument) + "' (see --help)");
    return ExitStatus{usageError};
  }
  return std::nullopt;
}

void printError(const std::string& message) {
  writeToStandardError("roomlattice: " + message + "\n");
}

}  // namespace roomlattice::platform::linux

#include "platform/linux/system/CommandLine.h"

#include "platform/linux/system/Autostart.h"
#include "platform/linux/system/Executable.h"
#include "platform/linux/system/StandardStreams.h"
#include "platform/linux/system/SystemLog.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace roomlattice::platform::linux {
namespace {

constexpr int failure = 1;
constexpr int usageError = 2;

constexpr const char* help =
    "Usage: roomlattice [OPTION]\n"
    "\n"
    "Makes virtual desktops easy to tell apart: a status item with the name and colour of the\n"
    "desktop in front, a menu of all desktops, and a label on each. Runs on the X11 display of\n"
    "DISPLAY, with a window manager that supports EWMH, until it is quit from its menu.\n"
    "\n"
    "  --help               print this text\n"
    "  --version            print the version\n"
    "  --recent-log         print what the program has logged in the last ten minutes\n"
    "  --autostart on|off   start the program with the session, or no longer\n"
    "  --at-login           wait for the window manager and a panel first, as at the start of a session\n"
    "\n"
    "Where it runs already, it opens its menu. roomlatticectl(1) tells it what to do.\n"
    "\n"
    "Settings are kept in $XDG_CONFIG_HOME/roomlattice/settings.json (~/.config if not set), log\n"
    "lines in the journal and in $XDG_STATE_HOME/roomlattice/log (~/.local/state if not set).\n";

ExitStatus refuse(const std::string& reason, int status) {
  printError(reason);
  return ExitStatus{status};
}

/// Where the text cannot be written it must not look as if there were none.
ExitStatus print(const std::string& text) {
  const bool isWritten = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
  return isWritten ? ExitStatus{0} : refuse("cannot write to standard output", failure);
}

/// `state` is what follows the option; null where nothing does.
ExitStatus setAutostart(const char* state) {
  const std::string_view wanted = state == nullptr ? "" : state;
  if (wanted != "on" && wanted != "off") {
    return refuse("--autostart is to be 'on' or 'off' (see --help)", usageError);
  }
  const auto path = Autostart::standardPath();
  const auto change = wanted == "on" ? Autostart::State::On : Autostart::State::Off;
  if (!path || !Autostart(*path).set(change, pathOfExecutable())) {
    return refuse("cannot write '" + path.value_or("").string() + "'", failure);
  }
  return ExitStatus{0};
}

}  // namespace

Start startOf(int argc, const char* const* argv) {
  const bool isLogin = std::any_of(argv, argv + argc, [](std::string_view one) { return one == atLoginOption; });
  return isLogin ? Start::AtLogin : Start::ByUser;
}

std::optional<ExitStatus> answerCommandLine(int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      return print(help);
    }
    if (argument == "--version") {
      return print("roomlattice " ROOMLATTICE_VERSION "\n");
    }
    if (argument == recentLogOption) {
      return print(recentLog(std::chrono::minutes(10)));
    }
    if (argument == "--autostart") {
      return setAutostart(argv[i + 1]);
    }
    if (argument != atLoginOption) {
      return refuse("unknown option '" + std::string(argument) + "' (see --help)", usageError);
    }
  }
  return std::nullopt;
}

void printError(const std::string& message) {
  writeToStandardError("roomlattice: " + message + "\n");
}

}  // namespace roomlattice::platform::linux

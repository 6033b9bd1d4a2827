#import "platform/macos/CommandLine.h"

#import <Foundation/Foundation.h>

#import "platform/macos/Strings.h"

#include <cstdio>
#include <string_view>

namespace roomlattice::platform::macos {
namespace {

constexpr const char* help =
    "Usage: Roomlattice [--help | --version]\n"
    "\n"
    "Makes desktops easy to tell apart: an item in the menu bar with the name and colour of the\n"
    "desktop in front, a menu of all desktops, and a label on each. Open Roomlattice.app with the\n"
    "Finder or with open(1): started by its path it runs with the permissions of the terminal.\n"
    "\n"
    "Settings: defaults read org.roomlattice.Roomlattice\n"
    "Log:      log show --last 10m --predicate 'process == \"Roomlattice\"'\n";

std::string version() {
  return toString([[NSBundle mainBundle] objectForInfoDictionaryKey:@"CFBundleShortVersionString"]);
}

}  // namespace

std::optional<ExitStatus> answerCommandLine(int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      std::fputs(help, stdout);
      return ExitStatus{0};
    }
    if (argument == "--version") {
      std::printf("Roomlattice %s\n", version().c_str());
      return ExitStatus{0};
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::platform::macos

#include "tests/conformance/KnownGaps.h"

namespace roomlattice::tests {
namespace {

struct Gap {
  std::string_view backend;
  std::string_view test;
  std::string_view reason;
};

constexpr std::string_view noProcesses = "A simulated desktop has the tools it was given, and no shell";
constexpr std::string_view exits = "AppKit's terminate: ends the process itself, so the loop never returns";
constexpr std::string_view noWayIn = "There is no way in for other programs on a Mac yet";
constexpr std::string_view noNames = "A Mac has no names for desktops";
constexpr std::string_view usersDesktops = "The desktops are the user's own: one perhaps, or full-screen applications";

/// All that the backends are known not to keep; of a suite alone, all its tests. The macOS backend is "macos" on AppKit
/// and "gnustep" on what stands for that on Linux.
constexpr Gap gaps[] = {
    {"simulated", "SystemConformance.ReadsAllThatAChildWrites", noProcesses},
    {"simulated", "SystemConformance.ReadsMoreThanAPipeHolds", noProcesses},
    {"simulated", "SystemConformance.KeepsBytesThatAreNoText", noProcesses},
    {"simulated", "SystemConformance.DoesNotLookAtTheExitStatus", noProcesses},
    {"gnustep", "ApplicationConformance.TellsOnceThatItHasLaunched", exits},
    {"gnustep", "ControlConformance.BringsWhatOtherProgramsAskForWhileItIsServed", noWayIn},
    {"gnustep", "DesktopNamesConformance.GivesADesktopANameAndTells", noNames},
    {"gnustep", "DataDefaultsConformance.KeepsTheTypeOfEqualNumbers",
     "GNUstep's defaults do not write a number over a Boolean that it takes for equal"},
    {"gnustep", "DataJsonConformance.TellsIntegersFromDoubles", "GNUstep's parser makes a double of every number"},
    {"gnustep", "DataJsonConformance.RefusesTrailingText", "GNUstep's parser does not look behind the document's end"},
    {"macos", "ApplicationConformance.TellsOnceThatItHasLaunched", exits},
    {"macos", "ControlConformance.BringsWhatOtherProgramsAskForWhileItIsServed", noWayIn},
    {"macos", "DesktopNamesConformance.GivesADesktopANameAndTells", noNames},
    {"macos", "MenuConformance", "AppKit stays in the click while a menu is open: a test would wait for its own end"},
    {"macos", "WindowServerConformance.DescribesDisplaysAndTheirDesktops", usersDesktops},
    {"macos", "WindowServerConformance.GoesToTheNextDesktopForACompletedSwipeAndTellsTheWorkspace", usersDesktops},
};

bool isOf(std::string_view test, std::string_view gap) {
  return test == gap || (test.starts_with(gap) && test[gap.size()] == '.');
}

}  // namespace

std::optional<std::string> knownGap(std::string_view backend, std::string_view test) {
  for (const Gap& gap : gaps) {
    if (gap.backend == backend && isOf(test, gap.test)) {
      return std::string(gap.reason);
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::tests

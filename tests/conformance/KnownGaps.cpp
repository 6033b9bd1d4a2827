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

/// All that the backends are known not to keep. The macOS backend is meant as it runs on GNUstep.
constexpr Gap gaps[] = {
    {"simulated", "SystemConformance.ReadsAllThatAChildWrites", noProcesses},
    {"simulated", "SystemConformance.ReadsMoreThanAPipeHolds", noProcesses},
    {"simulated", "SystemConformance.KeepsBytesThatAreNoText", noProcesses},
    {"simulated", "SystemConformance.DoesNotLookAtTheExitStatus", noProcesses},
    {"x11", "MenuConformance.LeavesAMonitorThatARowEndedWithoutKeys",
     "A window that gets the keyboard late closes the menu, and nothing tells the test when it has it"},
    {"macos", "ApplicationConformance.TellsOnceThatItHasLaunched", exits},
    {"macos", "ControlConformance.BringsWhatOtherProgramsAskForWhileItIsServed",
     "There is no way in for other programs on a Mac yet"},
    {"macos", "DesktopNamesConformance.GivesADesktopANameAndTells", "A Mac has no names for desktops"},
    {"macos", "DataDefaultsConformance.KeepsTheTypeOfEqualNumbers",
     "GNUstep's defaults do not write a number over a Boolean that it takes for equal"},
    {"macos", "DataJsonConformance.TellsIntegersFromDoubles", "GNUstep's parser makes a double of every number"},
    {"macos", "DataJsonConformance.RefusesTrailingText", "GNUstep's parser does not look behind the document's end"},
};

}  // namespace

std::optional<std::string> knownGap(std::string_view backend, std::string_view test) {
  for (const Gap& gap : gaps) {
    if (gap.backend == backend && gap.test == test) {
      return std::string(gap.reason);
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::tests

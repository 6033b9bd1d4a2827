#include "spaces/SpaceObserver.h"

#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "spaces/SpaceManager.h"
#include "support/JsonText.h"
#include "tests/fuzz/FuzzInput.h"

#include <algorithm>

/// The list of desktops as a window server might give it. A negative identifier ends the program on purpose.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  std::string text = tests::textOf(data, size);
  std::ranges::replace(text, '-', '0');
  const auto displays = fromJson(text);
  if (!displays) {
    return 0;
  }
  platform::simulated::SimulatedDesktop desktop(1);
  platform::simulated::SimulatedPlatform platform(desktop);
  desktop.overrideManagedDisplaySpaces(*displays);
  SpaceManager spaces(platform);
  SpaceObserver(platform.windowServer(), platform.notifications().workspaceCenter(), spaces).refresh();
  for (const SpaceInfo& space : spaces.spaces()) {
    tests::require(spaces.displayName(space).starts_with("Desktop"), "a desktop without a name has its default title");
  }
  return 0;
}

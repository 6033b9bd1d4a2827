#include "benchmarks/RunningProgram.h"

#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <chrono>
#include <string>
#include <vector>

namespace roomlattice::benchmarks {

using namespace std::chrono_literals;

RunningProgram::RunningProgram(int desktops) : desktop(desktops) {
  platform_.emplace(desktop);
  installation_.emplace(*platform_);
  SpaceManager& manager = SpaceManager::shared();
  PreferencesStore& preferences = PreferencesStore::shared();
  observer_.emplace(platform_->windowServer(), platform_->notifications().workspaceCenter(), manager);
  observer_->refresh();
  storeNamesAndColors();
  menuBar_.emplace(*platform_, manager, preferences, [] {});
  signs_.emplace(*platform_, manager, preferences);
  for (const platform::simulated::Space& space : desktop.spaces().regular()) {
    desktop.switchTo(space.id);
  }
  desktop.switchTo(desktop.desktopAt(0));
  desktop.advance(1s);
}

void RunningProgram::storeNamesAndColors() {
  SpaceManager& manager = SpaceManager::shared();
  SpaceColors colors;
  const std::vector<SpaceInfo> spaces = manager.spaces();
  for (std::size_t index = 0; index < spaces.size(); index += 2) {
    manager.setName("Name " + std::to_string(index), spaces[index]);
    colors[spaces[index].uuid] = {{0.2, 0.4, 0.6, 1.0}, {0.1, 0.3, 0.5, 1.0}};
  }
  PreferencesStore::shared().setSpaceColors(colors);
}

}  // namespace roomlattice::benchmarks

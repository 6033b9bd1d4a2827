#include "control/DesktopSwitcher.h"

#include <algorithm>
#include <chrono>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

// What a journey may take besides its swipes. Whoever waits longer has been refused, or the user went elsewhere.
constexpr platform::Duration settling = 1s;
constexpr platform::Duration perDesktop = 50ms;

}  // namespace

DesktopSwitcher::DesktopSwitcher(platform::Platform& platform, SpaceManager& manager)
    : platform_(platform), manager_(manager) {
  arrivals_ = platform.notifications().defaultCenter().observe(SpaceManager::activeChanged, [this] {
    if (isTravelling() && manager_.activeSpaceID() == next_) {
      arrived();
    }
  });
}

void DesktopSwitcher::switchTo(platform::SpaceID desktop) {
  destination_ = desktop;
  if (!isTravelling()) {
    depart();
  }
}

void DesktopSwitcher::depart() {
  const std::vector<SpaceInfo> regular = regularSpaces(manager_.spaces());
  const auto target = positionOf(destination_, regular);
  const auto active = positionOf(manager_.activeSpaceID(), regular);
  if (!target || !active || target == active) {
    return;
  }
  next_ = destination_;
  const auto steps = static_cast<platform::Duration::rep>(std::max(*target, *active) - std::min(*target, *active));
  patience_ = platform_.dispatcher().schedule(settling + perDesktop * steps, [this] { patience_.cancel(); });
  manager_.switchToSpace(regular[*target], SwitchStyle::Instant);
}

void DesktopSwitcher::arrived() {
  patience_.cancel();
  depart();
}

}  // namespace roomlattice

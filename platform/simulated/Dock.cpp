#include "platform/simulated/Dock.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace roomlattice::platform::simulated {
namespace {

constexpr double sufficientProgress = 0.5;
constexpr double sufficientVelocity = 1.0;

Direction directionOf(double signedAmount) {
  return signedAmount < 0.0 ? Direction::Left : Direction::Right;
}

/// Nothing for a swipe that falls back to where it came from.
std::optional<Direction> outcome(const DockSwipe& ended) {
  if (std::abs(ended.velocity) >= sufficientVelocity) {
    return directionOf(ended.velocity);
  }
  return std::abs(ended.progress) >= sufficientProgress ? std::optional(directionOf(ended.progress)) : std::nullopt;
}

}  // namespace

Dock::Dock(VirtualTime& time, SpaceList& spaces, Faults& faults, std::function<void()> spacesChanged)
    : time_(time), spaces_(spaces), faults_(faults), spacesChanged_(std::move(spacesChanged)) {}

void Dock::handle(const Event& event) {
  const std::optional<DockSwipe> swipe = DockSwipe::read(event);
  if (!swipe || swipe->axis != DockSwipe::Horizontal) {
    return;
  }
  switch (swipe->phase) {
    case DockSwipe::Began:
    case DockSwipe::Changed:
      swiping_ = true;
      break;
    case DockSwipe::Ended:
      if (const auto direction = outcome(*swipe); std::exchange(swiping_, false) && direction) {
        complete(*direction);
      }
      break;
    case DockSwipe::Cancelled:
      swiping_ = false;
      break;
  }
}

void Dock::complete(Direction direction) {
  if (faults_.allSwipesDropped) {
    return;
  }
  if (faults_.swipesDropped > 0) {
    --faults_.swipesDropped;
    return;
  }
  time_.post(settlingTime_ + faults_.swipesDelayedBy, [this, direction] { arrive(direction); });
}

void Dock::arrive(Direction direction) {
  if (const std::optional<SpaceID> space = neighbor(direction)) {
    spaces_.activate(*space);
    spacesChanged_();
  }
}

std::optional<SpaceID> Dock::neighbor(Direction direction) const {
  std::vector<Space> spaces = spaces_.all();
  if (rule_ == SwipeRule::SpacesOfDisplay && !spaces.empty()) {
    spaces = spaces_.displays()[spaces_.keyboardDisplay()].spaces;
  }
  if (direction == Direction::Left) {
    std::ranges::reverse(spaces);
  }
  const auto active = std::ranges::find(spaces, spaces_.activeSpace(), &Space::id);
  if (active == spaces.end()) {
    return std::nullopt;
  }
  const auto next = std::find_if(active + 1, spaces.end(), [this](const Space& space) {
    return rule_ == SwipeRule::SpacesOfDisplay || space.isRegular();
  });
  return next == spaces.end() ? std::nullopt : std::optional(next->id);
}

}  // namespace roomlattice::platform::simulated

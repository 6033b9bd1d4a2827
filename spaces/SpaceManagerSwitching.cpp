#include "platform/DockSwipe.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <vector>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::EventField;
namespace dockSwipe = platform::dockSwipe;

constexpr platform::Duration animatedSpacing = 220ms;
constexpr platform::Duration instantSpacing = 50ms;

constexpr int changedEventCount = 8;
constexpr platform::Duration changedEventSpacing = 18ms;

// Negligible, yet not zero: the smallest positive single-precision value.
constexpr double instantProgress = 0x1p-149;
constexpr double instantVelocity = 400.0;

constexpr double sign(ISSDirection direction) {
  return direction == ISSDirection::right ? 1.0 : -1.0;
}

/// Posts one event of a Dock swipe as a trackpad makes them. An event that the system will not make is left out.
void postDockSwipe(platform::Events& events, dockSwipe::Phase phase, double progress, double velocity) {
  const std::unique_ptr<platform::Event> event = events.createEvent();
  if (event == nullptr) {
    return;
  }
  event->setInteger(EventField::Kind, dockSwipe::eventKind);
  event->setInteger(EventField::GestureKind, dockSwipe::gestureKind);
  event->setInteger(EventField::Phase, phase);
  event->setReal(EventField::Progress, progress);
  event->setInteger(EventField::SwipeAxis, dockSwipe::horizontal);
  event->setReal(EventField::Velocity, velocity);
  event->setReal(EventField::SecondaryVelocity, velocity);
  events.post(*event);
}

std::optional<std::ptrdiff_t> position(const std::vector<SpaceInfo>& spaces, platform::SpaceID spaceID) {
  const auto found = std::ranges::find(spaces, spaceID, &SpaceInfo::spaceID);
  return found == spaces.end() ? std::nullopt : std::optional(std::distance(spaces.begin(), found));
}

}  // namespace

void SpaceManager::switchToSpace(const SpaceInfo& space) {
  if (space.spaceID == activeSpaceID_) {
    return;
  }
  const std::vector<SpaceInfo> regular = regularSpaces(spaces_);
  const std::optional<std::ptrdiff_t> active = position(regular, activeSpaceID_);
  const std::optional<std::ptrdiff_t> target = position(regular, space.spaceID);
  if (!active || !target) {
    return;
  }
  const ISSDirection direction = *target > *active ? ISSDirection::right : ISSDirection::left;
  const std::ptrdiff_t steps = std::abs(*target - *active);
  const bool instant = PreferencesStore::shared().instantMenuSwitch();
  const platform::Duration spacing = instant ? instantSpacing : animatedSpacing;
  for (std::ptrdiff_t step = 0; step < steps; ++step) {
    platform_.dispatcher().asyncAfter(spacing * step, lifetime_.guard([this, direction, instant] {
      if (instant) {
        instantDockSwipe(direction);
      } else {
        animatedDockSwipe(direction);
      }
    }));
  }
}

void SpaceManager::animatedDockSwipe(ISSDirection direction) {
  const double s = sign(direction);
  postDockSwipe(platform_.events(), dockSwipe::Began, s * 0.001, s * 0.5);
  const auto postLater = [this, s](int i, dockSwipe::Phase phase, double progress) {
    platform_.dispatcher().asyncAfter(changedEventSpacing * i, lifetime_.guard([this, s, phase, progress] {
      postDockSwipe(platform_.events(), phase, s * progress, s * 1.5);
    }));
  };
  for (int i = 1; i <= changedEventCount; ++i) {
    postLater(i, dockSwipe::Changed, static_cast<double>(i) / changedEventCount);
  }
  postLater(changedEventCount + 1, dockSwipe::Ended, 1.0);
}

void SpaceManager::instantDockSwipe(ISSDirection direction) {
  const double s = sign(direction);
  for (const dockSwipe::Phase phase : {dockSwipe::Began, dockSwipe::Changed, dockSwipe::Ended}) {
    postDockSwipe(platform_.events(), phase, s * instantProgress, s * instantVelocity);
  }
}

}  // namespace roomlattice

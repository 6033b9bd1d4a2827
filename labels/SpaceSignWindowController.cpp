#include "labels/SpaceSignWindowController.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;

constexpr platform::Duration showDelay = 500ms;
constexpr platform::Duration showPeriod = 15s;
constexpr platform::Duration hideDuration = 350ms;
constexpr platform::Duration flashDuration = 500ms;
constexpr platform::Duration dismissDuration = 300ms;
constexpr platform::Duration primePeriod = 500ms;

// The pointer cannot push away a label that is hardly there.
constexpr double visibleAlpha = 0.05;

constexpr CollectionBehavior behaviorInFrontDuringShowAll =
    CollectionBehavior::Transient | CollectionBehavior::IgnoresCycle;

}  // namespace

SpaceSignWindowController::SpaceSignWindowController(platform::Platform& platform, const SpaceManager& manager,
                                                     const PreferencesStore& preferences)
    : platform_(platform),
      manager_(manager),
      preferences_(preferences),
      windows_(platform, manager, preferences),
      tourOverlay_(platform.userInterface()) {
  ensureSignForActiveSpace();
  observeChanges();
  // Keeps the half-second timer of a process without a visible window from being throttled.
  activityToken_ = platform.system().beginActivity(platform::ActivityKind::UserInitiatedAllowingIdleSystemSleep,
                                                   "Keep desktop-label priming responsive");
  startPrimeTimer();
  startMouseMonitor();
}

void SpaceSignWindowController::observeChanges() {
  platform::NotificationCenter& process = platform_.notifications().defaultCenter();
  platform::NotificationCenter& workspace = platform_.notifications().workspaceCenter();
  namespace notification = platform::notification;
  observers_ = {
      process.observe(SpaceManager::didChange, [this] { windows_.spacesChanged(); }),
      process.observe(SpaceManager::activeChanged, [this] { activeChanged(); }),
      process.observe(PreferencesStore::didChange, [this] { windows_.place(); }),
      workspace.observe(notification::activeSpaceDidChange, [this] { primeNonActiveSigns(); }),
      process.observe(notification::didChangeScreenParameters, [this] { windows_.place(); }),
      process.observe(SpaceManager::tourWillStart, [this] { tourWillStart(); }),
      process.observe(SpaceManager::tourDidEnd, [this] { tourDidEnd(); }),
      workspace.observe(notification::didWake, [this] { primeNonActiveSigns(); }),
  };
}

void SpaceSignWindowController::ensureSignForActiveSpace() {
  if (const SpaceInfo* active = manager_.activeSpace()) {
    windows_.ensure(*active);
  }
}

void SpaceSignWindowController::showAll() {
  if (!preferences_.showSignAfterSelection()) {
    return;
  }
  flashWorkItem_.cancel();
  isShowing_ = true;
  const platform::SpaceID active = manager_.activeSpaceID();
  if (const auto inFront = windows_.find(active)) {
    inFront->setCollectionBehavior(behaviorInFrontDuringShowAll);
    inFront->setAlpha(0.0);
  }
  platform_.dispatcher().asyncAfter(showDelay, lifetime_.guard([this, active] {
    if (isShowing_) {
      setInactiveAlpha(active, 1.0);
    }
  }));
  hideWorkItem_ = platform_.dispatcher().schedule(showPeriod, [this] { hideAll(); });
}

void SpaceSignWindowController::hideAll() {
  if (!isShowing_) {
    return;
  }
  isShowing_ = false;
  flashWorkItem_.cancel();
  hideWorkItem_.cancel();
  for (const auto& [spaceID, label] : windows_.all()) {
    label.window->setCollectionBehavior(SignWindows::ordinaryBehavior);
    label.window->animateAlpha(0.0, hideDuration);
  }
}

void SpaceSignWindowController::handleSwipeBegan(platform::Direction direction) {
  if (!preferences_.showSignInSwipeMode() || isTouring_) {
    return;
  }
  const platform::SpaceID active = manager_.activeSpaceID();
  const double alpha = preferences_.signSwipeAlpha();
  flashWorkItem_.cancel();
  // The animated set takes a running fade's place, the direct one makes the value hold at once.
  for (const auto& [spaceID, label] : windows_.all()) {
    if (spaceID != active) {
      label.window->animateAlpha(alpha, 0s);
    }
  }
  setInactiveAlpha(active, alpha);
  createSignForSwipe(active, direction, alpha);
}

void SpaceSignWindowController::createSignForSwipe(platform::SpaceID activeSpaceID, platform::Direction direction,
                                                   double alpha) {
  const std::vector<SpaceInfo> desktops = regularSpaces(manager_.spaces());
  const std::optional<std::size_t> active = positionOf(activeSpaceID, desktops);
  const bool isRight = direction == platform::Direction::Right;
  if (!active || (isRight ? *active + 1 == desktops.size() : *active == 0)) {
    return;
  }
  const SpaceInfo& target = desktops[isRight ? *active + 1 : *active - 1];
  if (windows_.find(target.spaceID) != nullptr) {
    return;
  }
  const platform::Window& made = windows_.make(target, alpha);
  // Ordering it in has put it on the desktop in front.
  platform_.windowServer().removeWindowFromSpace(made.number(), activeSpaceID);
}

void SpaceSignWindowController::activeChanged() {
  const bool wasShowing = isShowing_;
  if (wasShowing) {
    hideAll();
  }
  dismissedSpaceIDs_.clear();
  const bool isNew = manager_.activeSpace() == nullptr || windows_.find(manager_.activeSpaceID()) == nullptr;
  ensureSignForActiveSpace();
  const platform::SpaceID active = manager_.activeSpaceID();
  flashWorkItem_.cancel();
  if (isTouring_) {
    setInactiveAlpha(active, 0.0);
    return;
  }
  // The active label keeps the alpha it arrived with.
  const bool swipeMode = preferences_.showSignInSwipeMode();
  setInactiveAlpha(active, swipeMode ? preferences_.signSwipeAlpha() : 0.0);
  if (!wasShowing && !isNew && swipeMode) {
    flashActiveSign();
  }
}

void SpaceSignWindowController::flashActiveSign() {
  const SignWindows::WindowPointer label = windows_.find(manager_.activeSpaceID());
  if (manager_.activeSpace() == nullptr || label == nullptr) {
    return;
  }
  flashWorkItem_ = platform_.dispatcher().schedule(0s, [label] { label->animateAlpha(0.0, flashDuration); });
}

void SpaceSignWindowController::startMouseMonitor() {
  mouseMonitor_ = platform_.events().monitorGlobalMouseMoved([this] { mouseMoved(); });
}

void SpaceSignWindowController::mouseMoved() {
  const platform::Point pointer = platform_.events().mouseLocation();
  if (isShowing_) {
    const bool overLabel = std::ranges::any_of(
        windows_.all(), [&](const auto& entry) { return entry.second.window->frame().contains(pointer); });
    if (overLabel) {
      hideAll();
    }
    return;
  }
  const platform::SpaceID active = manager_.activeSpaceID();
  const SignWindows::WindowPointer label = windows_.find(active);
  if (label != nullptr && label->alpha() > visibleAlpha && label->frame().contains(pointer)) {
    dismissedSpaceIDs_.insert(active);
    label->animateAlpha(0.0, dismissDuration);
  }
}

void SpaceSignWindowController::setInactiveAlpha(platform::SpaceID activeSpaceID, double alpha) {
  for (const auto& [spaceID, label] : windows_.all()) {
    if (spaceID != activeSpaceID) {
      label.window->setAlpha(alpha);
    }
  }
}

void SpaceSignWindowController::setAllAlpha(double alpha) {
  for (const auto& [spaceID, label] : windows_.all()) {
    label.window->setAlpha(alpha);
  }
}

void SpaceSignWindowController::startPrimeTimer() {
  primeTimer_ = platform_.dispatcher().repeatWhileActive(primePeriod, primePeriod, [this] { primeNonActiveSigns(); });
}

void SpaceSignWindowController::primeNonActiveSigns() {
  // Compares before it writes: in the steady state no window property is set.
  const auto prime = [](platform::Window& label, double alpha) {
    if (label.alpha() != alpha) {
      label.setAlpha(alpha);
    }
  };
  if (!preferences_.showSignInSwipeMode()) {
    for (const auto& [spaceID, label] : windows_.all()) {
      prime(*label.window, 0.0);
    }
    return;
  }
  if (isShowing_ || isTouring_) {
    return;
  }
  const platform::SpaceID active = manager_.activeSpaceID();
  const double alpha = preferences_.signSwipeAlpha();
  for (const auto& [spaceID, label] : windows_.all()) {
    if (spaceID != active && !dismissedSpaceIDs_.contains(spaceID)) {
      prime(*label.window, alpha);
    }
  }
}

void SpaceSignWindowController::tourWillStart() {
  isTouring_ = true;
  setAllAlpha(0.0);
  tourOverlay_.show();
}

void SpaceSignWindowController::tourDidEnd() {
  isTouring_ = false;
  tourOverlay_.hide();
}

}  // namespace roomlattice

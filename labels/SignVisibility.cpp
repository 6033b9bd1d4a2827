#include "labels/SpaceSignWindowController.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <algorithm>
#include <chrono>
#include <utility>
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

// The pointer cannot push away a label that is hardly there.
constexpr double visibleAlpha = 0.05;

constexpr CollectionBehavior behaviorInFrontDuringShowAll =
    CollectionBehavior::Transient | CollectionBehavior::IgnoresCycle;

}  // namespace

void SpaceSignWindowController::showAll() {
  if (!PreferencesStore::shared().showSignAfterSelection()) {
    return;
  }
  flashWorkItem_.cancel();
  isShowing_ = true;
  const platform::SpaceID active = SpaceManager::shared().activeSpaceID();
  if (platform::Window* inFront = window(active)) {
    inFront->setCollectionBehavior(behaviorInFrontDuringShowAll);
    inFront->setAlpha(0.0);
  }
  platform_.dispatcher().asyncAfter(showDelay, lifetime_.guard([this, active] {
    if (isShowing_) {
      setInactiveAlpha(active, 1.0);
    }
  }));
  hideWorkItem_ = platform_.dispatcher().schedule(showPeriod, lifetime_.guard([this] { hideAll(); }));
}

void SpaceSignWindowController::hideAll() {
  if (!isShowing_) {
    return;
  }
  isShowing_ = false;
  flashWorkItem_.cancel();
  hideWorkItem_.cancel();
  for (const auto& [spaceID, label] : windows_) {
    label->setCollectionBehavior(ordinaryBehavior);
    label->animateAlpha(0.0, hideDuration);
  }
}

void SpaceSignWindowController::handleSwipeBegan(platform::Direction direction) {
  if (!PreferencesStore::shared().showSignInSwipeMode() || isTouring_) {
    return;
  }
  const platform::SpaceID active = SpaceManager::shared().activeSpaceID();
  const double alpha = PreferencesStore::shared().signSwipeAlpha();
  flashWorkItem_.cancel();
  // The animated set takes a running fade's place, the direct one makes the value hold at once.
  for (const auto& [spaceID, label] : windows_) {
    if (spaceID != active) {
      label->animateAlpha(alpha, 0s);
    }
  }
  setInactiveAlpha(active, alpha);
  createSignForSwipe(active, direction, alpha);
}

void SpaceSignWindowController::createSignForSwipe(platform::SpaceID activeSpaceID, platform::Direction direction,
                                                   double alpha) {
  const SpaceManager& manager = SpaceManager::shared();
  const std::vector<SpaceInfo> desktops = regularSpaces(manager.spaces());
  const auto active = std::ranges::find(desktops, activeSpaceID, &SpaceInfo::spaceID);
  const bool isRight = direction == platform::Direction::Right;
  if (active == desktops.end() || (isRight ? active + 1 == desktops.end() : active == desktops.begin())) {
    return;
  }
  const SpaceInfo& target = isRight ? active[1] : active[-1];
  if (window(target.spaceID) != nullptr) {
    return;
  }
  WindowPointer made = makeSignWindow(manager.displayName(target), alpha);
  pinWindow(*made, target.spaceID);
  // Ordering it in has put it on the desktop in front.
  platform_.windowServer().removeWindowFromSpace(made->number(), activeSpaceID);
  windows_[target.spaceID] = std::move(made);
}

void SpaceSignWindowController::activeChanged() {
  const bool wasShowing = isShowing_;
  if (wasShowing) {
    hideAll();
  }
  dismissedSpaceIDs_.clear();
  const SpaceManager& manager = SpaceManager::shared();
  const bool isNew = manager.activeSpace() == nullptr || window(manager.activeSpaceID()) == nullptr;
  ensureSignForActiveSpace();
  const platform::SpaceID active = manager.activeSpaceID();
  flashWorkItem_.cancel();
  if (isTouring_) {
    setInactiveAlpha(active, 0.0);
    return;
  }
  // The active label keeps the alpha it arrived with.
  const PreferencesStore& preferences = PreferencesStore::shared();
  const bool swipeMode = preferences.showSignInSwipeMode();
  setInactiveAlpha(active, swipeMode ? preferences.signSwipeAlpha() : 0.0);
  if (!wasShowing && !isNew && swipeMode) {
    flashActiveSign();
  }
}

void SpaceSignWindowController::flashActiveSign() {
  const SpaceManager& manager = SpaceManager::shared();
  const auto found = windows_.find(manager.activeSpaceID());
  if (manager.activeSpace() == nullptr || found == windows_.end()) {
    return;
  }
  flashWorkItem_ = platform_.dispatcher().schedule(
      0s, lifetime_.guard([label = found->second] { label->animateAlpha(0.0, flashDuration); }));
}

void SpaceSignWindowController::startMouseMonitor() {
  mouseMonitor_ = platform_.events().monitorGlobalMouseMoved(lifetime_.guard([this] { mouseMoved(); }));
}

void SpaceSignWindowController::mouseMoved() {
  const platform::Point pointer = platform_.events().mouseLocation();
  if (isShowing_) {
    const bool overLabel =
        std::ranges::any_of(windows_, [&](const auto& entry) { return entry.second->frame().contains(pointer); });
    if (overLabel) {
      hideAll();
    }
    return;
  }
  const platform::SpaceID active = SpaceManager::shared().activeSpaceID();
  platform::Window* label = window(active);
  if (label != nullptr && label->alpha() > visibleAlpha && label->frame().contains(pointer)) {
    dismissedSpaceIDs_.insert(active);
    label->animateAlpha(0.0, dismissDuration);
  }
}

void SpaceSignWindowController::setInactiveAlpha(platform::SpaceID activeSpaceID, double alpha) {
  for (const auto& [spaceID, label] : windows_) {
    if (spaceID != activeSpaceID) {
      label->setAlpha(alpha);
    }
  }
}

void SpaceSignWindowController::setAllAlpha(double alpha) {
  for (const auto& [spaceID, label] : windows_) {
    label->setAlpha(alpha);
  }
}

}  // namespace roomlattice

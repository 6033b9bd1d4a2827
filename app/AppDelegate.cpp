#include "app/AppDelegate.h"

#include "spaces/SpaceManager.h"

#include <chrono>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

// Lets the session settle before the desktops start to move.
constexpr platform::Duration tourDelay = 1500ms;

}  // namespace

void AppDelegate::applicationDidFinishLaunching() {
  observeDesktops();
  // What a callback calls is built before what calls it.
  menuBar_.emplace(platform_);
  signs_.emplace(platform_);
  startHotCornerWatcher();
  startSwipeWatcher();
  platform_.dispatcher().asyncAfter(tourDelay, lifetime_.guard([] { SpaceManager::shared().performAutoTour(); }));
}

void AppDelegate::observeDesktops() {
  // Observed before the first snapshot is taken, so that no switch falls between the two; and before anything else
  // observes, so that the model is up to date when the others hear of a switch.
  observer_.emplace(platform_);
  activeSpaceObservation_ = platform_.notifications().workspaceCenter().observe(
      platform::notification::activeSpaceDidChange, [this] { observer_->activeSpaceDidChange(); });
  observer_->refresh();
}

void AppDelegate::startHotCornerWatcher() {
  hot_.emplace(platform_);
  hot_->onApproach = lifetime_.guard([this] { signs_->showAll(); });
  hot_->start();
}

void AppDelegate::startSwipeWatcher() {
  swipes_.emplace(platform_);
  swipes_->onSwipeBegan =
      lifetime_.guard([this](platform::Direction direction) { signs_->handleSwipeBegan(direction); });
  swipes_->start();
}

}  // namespace roomlattice

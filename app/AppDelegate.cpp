#include "app/AppDelegate.h"

#include "preferences/PreferencesStore.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"

#include <chrono>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

// Lets the session settle before the desktops start to move.
constexpr platform::Duration tourDelay = 1500ms;

}  // namespace

void AppDelegate::applicationDidFinishLaunching() {
  SpaceManager& manager = SpaceManager::shared();
  PreferencesStore& preferences = PreferencesStore::shared();
  // It observes before it takes the first snapshot, so that no switch falls between the two; and before anything else
  // observes, so that the model is up to date when the others hear of a switch.
  observer_.emplace(platform_.windowServer(), platform_.notifications().workspaceCenter(), manager);
  observer_->refresh();
  names_.emplace(platform_, manager);
  // What a callback calls is built before what calls it.
  menuBar_.emplace(platform_, manager, preferences, [] { PreferencesWindowController::shared().showWindow(); });
  signs_.emplace(platform_, manager, preferences);
  startHotCornerWatcher();
  startSwipeWatcher();
  commands_.emplace(platform_, manager, preferences, *menuBar_, *signs_);
  service_ = platform_.control().serve(*commands_);
  platform_.dispatcher().asyncAfter(tourDelay, lifetime_.guard([&manager] { manager.performAutoTour(); }));
}

void AppDelegate::startHotCornerWatcher() {
  hot_.emplace(platform_);
  hot_->onApproach = [this] { signs_->showAll(); };
  hot_->start();
}

void AppDelegate::startSwipeWatcher() {
  swipes_.emplace(platform_);
  swipes_->onSwipeBegan = [this](platform::Direction direction) { signs_->handleSwipeBegan(direction); };
  swipes_->start();
}

}  // namespace roomlattice

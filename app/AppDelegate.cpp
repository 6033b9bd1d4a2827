#include "app/AppDelegate.h"

namespace roomlattice {

void AppDelegate::applicationDidFinishLaunching() {
  observeDesktops();
  menuBar_.emplace(platform_);
}

void AppDelegate::observeDesktops() {
  // Observed before the first snapshot is taken, so that no switch falls between the two; and before anything else
  // observes, so that the model is up to date when the others hear of a switch.
  observer_.emplace(platform_);
  activeSpaceObservation_ = platform_.notifications().workspaceCenter().observe(
      platform::notification::activeSpaceDidChange, [this] { observer_->activeSpaceDidChange(); });
  observer_->refresh();
}

}  // namespace roomlattice

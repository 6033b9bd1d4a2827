#include "labels/LabelScreen.h"
#include "labels/SpaceSignWindowController.h"
#include "labels/TourOverlayView.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <chrono>
#include <memory>
#include <utility>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;

constexpr platform::Duration primePeriod = 500ms;
constexpr platform::Size overlaySize{460.0, 96.0};
constexpr platform::Duration overlayFadeIn = 200ms;
constexpr platform::Duration overlayFadeOut = 250ms;

}  // namespace

void SpaceSignWindowController::startPrimeTimer() {
  primeTimer_ =
      platform_.dispatcher().repeat(primePeriod, primePeriod, lifetime_.guard([this] { primeNonActiveSigns(); }));
}

void SpaceSignWindowController::primeNonActiveSigns() {
  // Compares before it writes: in the steady state no window property is set.
  const auto prime = [](platform::Window& label, double alpha) {
    if (label.alpha() != alpha) {
      label.setAlpha(alpha);
    }
  };
  const PreferencesStore& preferences = PreferencesStore::shared();
  if (!preferences.showSignInSwipeMode()) {
    for (const auto& [spaceID, label] : windows_) {
      prime(*label, 0.0);
    }
    return;
  }
  if (isShowing_ || isTouring_) {
    return;
  }
  const platform::SpaceID active = SpaceManager::shared().activeSpaceID();
  const double alpha = preferences.signSwipeAlpha();
  for (const auto& [spaceID, label] : windows_) {
    if (spaceID != active && !dismissedSpaceIDs_.contains(spaceID)) {
      prime(*label, alpha);
    }
  }
}

void SpaceSignWindowController::tourWillStart() {
  isTouring_ = true;
  setAllAlpha(0.0);
  showTourOverlay();
}

void SpaceSignWindowController::tourDidEnd() {
  isTouring_ = false;
  hideTourOverlay();
}

void SpaceSignWindowController::showTourOverlay() {
  if (tourOverlayWindow_ != nullptr) {
    return;
  }
  const platform::Rect screen = labelScreen(platform_.userInterface()).frame;
  const platform::Point origin{screen.midX() - overlaySize.width * 0.5, screen.midY() - overlaySize.height * 0.5};
  tourOverlayWindow_ = platform_.userInterface().createOverlayWindow(
      {.frame = {origin, overlaySize},
       .level = platform::WindowLevel::StatusWindow,
       .collectionBehavior =
           CollectionBehavior::CanJoinAllSpaces | CollectionBehavior::Stationary | CollectionBehavior::IgnoresCycle});
  tourOverlayWindow_->setContentView(std::make_unique<TourOverlayView>(platform_, platform::Rect{{}, overlaySize}));
  tourOverlayWindow_->setAlpha(0.0);
  tourOverlayWindow_->orderFront();
  tourOverlayWindow_->animateAlpha(1.0, overlayFadeIn);
}

void SpaceSignWindowController::hideTourOverlay() {
  if (tourOverlayWindow_ == nullptr) {
    return;
  }
  // The window lives in its completion until it has faded out.
  platform::Window& overlay = *tourOverlayWindow_;
  overlay.animateAlpha(0.0, overlayFadeOut,
                       [fading = std::exchange(tourOverlayWindow_, nullptr)] { fading->orderOut(); });
}

}  // namespace roomlattice

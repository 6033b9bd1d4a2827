#include "labels/TourOverlay.h"

#include "labels/SignPlacement.h"
#include "labels/TourOverlayView.h"

#include <chrono>
#include <utility>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;

constexpr platform::Size overlaySize{460.0, 96.0};
constexpr platform::Duration fadeIn = 200ms;
constexpr platform::Duration fadeOut = 250ms;

}  // namespace

void TourOverlay::show() {
  if (window_ != nullptr) {
    return;
  }
  const platform::Rect screen = signScreen(userInterface_).frame;
  const platform::Point origin{screen.midX() - overlaySize.width * 0.5, screen.midY() - overlaySize.height * 0.5};
  window_ = userInterface_.createOverlayWindow({.frame = {origin, overlaySize},
                                                .level = platform::WindowLevel::StatusWindow,
                                                .collectionBehavior = CollectionBehavior::CanJoinAllSpaces |
                                                                      CollectionBehavior::Stationary |
                                                                      CollectionBehavior::IgnoresCycle});
  window_->setContentView(std::make_unique<TourOverlayView>(userInterface_, platform::Rect{{}, overlaySize}));
  window_->setAlpha(0.0);
  window_->orderFront();
  window_->animateAlpha(1.0, fadeIn);
}

void TourOverlay::hide() {
  if (window_ == nullptr) {
    return;
  }
  // The window lives in its completion until it has faded out.
  platform::Window& overlay = *window_;
  overlay.animateAlpha(0.0, fadeOut, [fading = std::exchange(window_, nullptr)] { fading->orderOut(); });
}

}  // namespace roomlattice

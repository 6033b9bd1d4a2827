#include "input/SwipeWatcher.h"

#include <optional>

namespace roomlattice {
namespace {

using platform::DockSwipe;
using platform::Event;

// The source of what a user does.
constexpr std::int64_t noProcess = 0;

}  // namespace

void SwipeWatcher::start() {
  if (tap_ != nullptr) {
    return;
  }
  tap_ = platform_.events().createTap([this](const Event& event, std::uint32_t type) { handle(event, type); });
  if (tap_ == nullptr) {
    platform_.system().log("[Roomlattice] SwipeWatcher: failed to create event tap (need Accessibility)");
    return;
  }
  tap_->enable();
}

void SwipeWatcher::handle(const Event& event, std::uint32_t type) {
  if (type == platform::tapEvent::disabledByTimeout || type == platform::tapEvent::disabledByUserInput) {
    tap_->enable();
    return;
  }
  const std::optional<DockSwipe> swipe = DockSwipe::read(event);
  if (!swipe || event.integer(platform::EventField::SourceProcessID) != noProcess) {
    return;
  }
  switch (swipe->phase) {
    case DockSwipe::Began:
    case DockSwipe::Changed:
      // A lost beginning is made good by the first change.
      if (!swipeFired_) {
        swipeFired_ = true;
        reportSwipe(swipe->direction());
      }
      break;
    case DockSwipe::Ended:
    case DockSwipe::Cancelled:
      swipeFired_ = false;
      break;
  }
}

void SwipeWatcher::reportSwipe(platform::Direction direction) {
  // Deferred, so that the tap returns quickly.
  platform_.dispatcher().async(lifetime_.guard([this, direction] { onSwipeBegan(direction); }));
}

}  // namespace roomlattice

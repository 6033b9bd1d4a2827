#include "input/SwipeWatcher.h"

namespace roomlattice {
namespace {

using platform::Event;
using platform::EventField;

enum Phase : std::int64_t { Began = 1, Changed = 2, Ended = 4, Cancelled = 8 };

bool isUsersDockSwipe(const Event& event) {
  constexpr std::int64_t noProcess = 0;
  constexpr std::int64_t dockControlEvent = 30;
  constexpr std::int64_t dockSwipeGesture = 23;
  return event.integer(EventField::SourceProcessID) == noProcess &&
         event.integer(EventField::Kind) == dockControlEvent &&
         event.integer(EventField::GestureKind) == dockSwipeGesture;
}

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
  if (!isUsersDockSwipe(event)) {
    return;
  }
  switch (event.integer(EventField::Phase)) {
    case Began:
    case Changed:
      // A lost beginning is made good by the first change.
      if (!swipeFired_) {
        swipeFired_ = true;
        reportSwipe(event);
      }
      break;
    case Ended:
    case Cancelled:
      swipeFired_ = false;
      break;
    default:
      break;
  }
}

void SwipeWatcher::reportSwipe(const Event& event) {
  const double velocity = event.real(EventField::Velocity);
  const double direction = velocity == 0.0 ? event.real(EventField::Progress) : velocity;
  // Deferred, so that the tap returns quickly.
  platform_.dispatcher().async(lifetime_.guard([this, isRight = direction >= 0.0] { onSwipeBegan(isRight); }));
}

}  // namespace roomlattice

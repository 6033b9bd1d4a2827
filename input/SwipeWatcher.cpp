#include "input/SwipeWatcher.h"

#include "platform/DockSwipe.h"

namespace roomlattice {
namespace {

using platform::Event;
using platform::EventField;

bool isUsersDockSwipe(const Event& event) {
  constexpr std::int64_t noProcess = 0;
  return event.integer(EventField::SourceProcessID) == noProcess && platform::isDockSwipe(event);
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
    case platform::dockSwipe::Began:
    case platform::dockSwipe::Changed:
      // A lost beginning is made good by the first change.
      if (!swipeFired_) {
        swipeFired_ = true;
        reportSwipe(event);
      }
      break;
    case platform::dockSwipe::Ended:
    case platform::dockSwipe::Cancelled:
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

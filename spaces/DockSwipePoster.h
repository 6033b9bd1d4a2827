#pragma once

#include "platform/Dispatcher.h"
#include "platform/DockSwipe.h"
#include "platform/Events.h"
#include "support/Lifetime.h"

namespace roomlattice {

/// How a switch looks: as a trackpad's swipe that the system animates, or at once.
enum class SwitchStyle { Animated, Instant };

/// Moves by one desktop as a user's swipe does: posts the events of a trackpad into the session's stream. Without the
/// user's permission the system drops them in silence. Main thread only.
class DockSwipePoster {
 public:
  DockSwipePoster(platform::Events& events, platform::Dispatcher& dispatcher)
      : events_(events), dispatcher_(dispatcher) {}

  /// Posts the first event before it returns; an animated swipe's last one follows 162 ms later.
  void post(platform::Direction direction, SwitchStyle style);

 private:
  void animatedDockSwipe(platform::Direction direction);
  void instantDockSwipe(platform::Direction direction);
  void post(const platform::DockSwipe& swipe);

  platform::Events& events_;
  platform::Dispatcher& dispatcher_;
  Lifetime lifetime_;
};

}  // namespace roomlattice

#pragma once

#include "platform/DockSwipe.h"
#include "platform/simulated/Faults.h"
#include "platform/simulated/SpaceList.h"
#include "platform/simulated/VirtualTime.h"

#include <functional>
#include <optional>

namespace roomlattice::platform::simulated {

/// Which spaces one swipe after the other visits. There is no wrap-around under either rule.
enum class SwipeRule {
  /// The regular desktops of all displays in list order; the keyboard goes along to the display arrived on. From a
  /// full-screen space the swipe goes to the nearest regular desktop.
  RegularDesktops,
  /// The spaces of the display with the keyboard, full-screen ones included.
  SpacesOfDisplay,
};

/// The process that recognises swipes in the event stream and moves between desktops.
///
/// A swipe begins with a began or changed phase, and counts at its ended phase if by then it has come half-way
/// (progress at least 0.5 either way) or is fast (velocity at least 1.0 either way); a fast one goes where its velocity
/// points, any other where its progress does. A settling time later the desktop moves one step from the one that is
/// active then; a swipe at the end of the list moves nowhere. Who posted the events makes no difference.
class Dock {
 public:
  /// `spacesChanged` is called after each move.
  Dock(VirtualTime& time, SpaceList& spaces, Faults& faults, std::function<void()> spacesChanged);

  /// Looks at one event of the stream.
  void handle(const Event& event);

  /// From the ended phase to the new desktop being active; 250 ms at first.
  Duration settlingTime() const { return settlingTime_; }
  void setSettlingTime(Duration time) { settlingTime_ = time; }

  /// RegularDesktops at first.
  void setSwipeRule(SwipeRule rule) { rule_ = rule; }

 private:
  void complete(Direction direction);
  void arrive(Direction direction);
  std::optional<SpaceID> neighbor(Direction direction) const;

  VirtualTime& time_;
  SpaceList& spaces_;
  Faults& faults_;
  std::function<void()> spacesChanged_;
  Duration settlingTime_ = std::chrono::milliseconds(250);
  SwipeRule rule_ = SwipeRule::RegularDesktops;
  bool swiping_ = false;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/Events.h"

#include <cstdint>
#include <optional>

namespace roomlattice::platform {

/// Along the row of desktops: right is towards the next one in the list.
enum class Direction { Left = 0, Right = 1 };

/// One event of a swipe between desktops, as the Dock of macOS knows them, whoever made it.
struct DockSwipe {
  /// The system may give other numbers than these.
  enum Phase : std::int64_t { Began = 1, Changed = 2, Ended = 4, Cancelled = 8 };

  /// Likewise.
  enum Axis : std::int64_t { Horizontal = 1 };

  Phase phase = Began;
  /// How far the fingers have come; 1 is a whole desktop to the right, -1 to the left.
  double progress = 0.0;
  /// How fast they are, in desktops per second, with the same sign.
  double velocity = 0.0;
  Axis axis = Horizontal;

  /// What `event` says, or nothing when it is no event of such a swipe.
  static std::optional<DockSwipe> read(const Event& event);

  /// Makes `event`, which has no fields yet, an event of this swipe.
  void write(Event& event) const;

  /// Where the fingers move now, and where they have come to when they rest. What is not a number counts as left.
  Direction direction() const;
};

/// 1 to the right, -1 to the left.
constexpr double signOf(Direction direction) {
  return direction == Direction::Right ? 1.0 : -1.0;
}

}  // namespace roomlattice::platform

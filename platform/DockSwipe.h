#pragma once

#include "platform/Events.h"

#include <cstdint>

namespace roomlattice::platform {

/// A swipe between desktops as it stands in the event stream: the values of the fields that make an event one of it.
namespace dockSwipe {

inline constexpr std::int64_t eventKind = 30;    // EventField::Kind: a gesture event of the Dock
inline constexpr std::int64_t gestureKind = 23;  // EventField::GestureKind
inline constexpr std::int64_t horizontal = 1;    // EventField::SwipeAxis

/// EventField::Phase. A swipe may have other phases besides.
enum Phase : std::int64_t { Began = 1, Changed = 2, Ended = 4, Cancelled = 8 };

}  // namespace dockSwipe

/// True for the events of a swipe between desktops, whoever made them.
inline bool isDockSwipe(const Event& event) {
  return event.integer(EventField::Kind) == dockSwipe::eventKind &&
         event.integer(EventField::GestureKind) == dockSwipe::gestureKind;
}

}  // namespace roomlattice::platform

#pragma once

#include "platform/DockSwipe.h"
#include "platform/Platform.h"
#include "support/Lifetime.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace roomlattice {

/// Listens to the user's Dock swipes and reports the start of each one, once. Swipes that a process posts, this
/// program's own included, do not count.
class SwipeWatcher {
 public:
  explicit SwipeWatcher(platform::Platform& platform) : platform_(platform) {}

  /// Called on a later turn of the main queue.
  std::function<void(platform::Direction direction)> onSwipeBegan = [](platform::Direction) {};

  /// Begins to listen, until this object goes. Without the user's permission it logs one line and hears nothing.
  void start();

 private:
  void handle(const platform::Event& event, std::uint32_t type);
  void reportSwipe(platform::Direction direction);

  platform::Platform& platform_;
  std::unique_ptr<platform::EventTap> tap_;
  // From the first reported event of a swipe until its end.
  bool swipeFired_ = false;
  Lifetime lifetime_;
};

}  // namespace roomlattice

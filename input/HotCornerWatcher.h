#pragma once

#include "platform/Platform.h"
#include "support/Lifetime.h"

#include <functional>

namespace roomlattice {

/// Reports each entry of the pointer into a small square at the top left corner of the main screen.
class HotCornerWatcher {
 public:
  explicit HotCornerWatcher(platform::Platform& platform) : platform_(platform) {}

  /// Called on a later turn of the main queue, once for each entry.
  std::function<void()> onApproach = [] {};

  /// Begins to watch the pointer, until this object goes. Moves over the program's own windows are not seen.
  void start();

 private:
  void handleMouseMoved();

  platform::Platform& platform_;
  bool armed_ = true;
  platform::Registration monitor_;
  Lifetime lifetime_;
};

}  // namespace roomlattice

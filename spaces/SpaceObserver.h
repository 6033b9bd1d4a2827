#pragma once

#include "platform/Platform.h"

namespace roomlattice {

/// Takes snapshots of the window server's desktops and hands them to SpaceManager::shared(). Main thread only.
class SpaceObserver {
 public:
  explicit SpaceObserver(platform::Platform& platform) : platform_(platform) {}

  /// The workspace reported another active desktop.
  void activeSpaceDidChange() { refresh(); }

  /// Reads the list and the active desktop now. A malformed list reads as an empty one.
  void refresh();

 private:
  platform::Platform& platform_;
};

}  // namespace roomlattice

#pragma once

#include "platform/NotificationCenter.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceManager.h"

namespace roomlattice {

/// Takes snapshots of the window server's desktops and hands them to the model: when it is told to, and whenever the
/// workspace reports another active desktop.
class SpaceObserver {
 public:
  SpaceObserver(platform::WindowServer& windowServer, platform::NotificationCenter& workspace, SpaceManager& spaces);

  /// The workspace reported another active desktop.
  void activeSpaceDidChange() { refresh(); }

  /// Reads the list and the active desktop now. A malformed list reads as an empty one.
  void refresh();

 private:
  platform::WindowServer& windowServer_;
  SpaceManager& spaces_;
  platform::Registration observation_;
};

}  // namespace roomlattice

#pragma once

#include "menubar/MenuBarController.h"
#include "platform/Platform.h"
#include "spaces/SpaceObserver.h"

#include <optional>

namespace roomlattice {

/// Builds and connects the program's objects once the application has launched, and owns them. Main thread only.
class AppDelegate {
 public:
  explicit AppDelegate(platform::Platform& platform) : platform_(platform) {}

  void applicationDidFinishLaunching();

 private:
  void observeDesktops();

  platform::Platform& platform_;
  std::optional<SpaceObserver> observer_;
  platform::Registration activeSpaceObservation_;
  std::optional<MenuBarController> menuBar_;
};

}  // namespace roomlattice

#pragma once

#include "control/DesktopCommands.h"
#include "input/HotCornerWatcher.h"
#include "input/SwipeWatcher.h"
#include "labels/SpaceSignWindowController.h"
#include "menubar/MenuBarController.h"
#include "platform/Platform.h"
#include "spaces/NameExchange.h"
#include "spaces/SpaceObserver.h"
#include "support/Lifetime.h"

#include <optional>

namespace roomlattice {

/// Builds and connects the program's objects once the application has launched, and owns them but for the shared ones,
/// which it alone looks up.
class AppDelegate {
 public:
  explicit AppDelegate(platform::Platform& platform) : platform_(platform) {}

  void applicationDidFinishLaunching();

 private:
  void startHotCornerWatcher();
  void startSwipeWatcher();

  platform::Platform& platform_;
  std::optional<SpaceObserver> observer_;
  std::optional<NameExchange> names_;
  std::optional<MenuBarController> menuBar_;
  std::optional<SpaceSignWindowController> signs_;
  std::optional<HotCornerWatcher> hot_;
  std::optional<SwipeWatcher> swipes_;
  std::optional<DesktopCommands> commands_;
  platform::Registration service_;
  Lifetime lifetime_;
};

}  // namespace roomlattice

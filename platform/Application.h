#pragma once

#include <functional>

namespace roomlattice::platform {

enum class ActivationPolicy {
  /// No Dock or taskbar entry and no main menu; windows may still come to the front.
  Accessory,
};

/// The process as the desktop sees it, and its event loop.
class Application {
 public:
  virtual ~Application() = default;

  virtual void setActivationPolicy(ActivationPolicy policy) = 0;

  /// Runs the event loop until the application is terminated and returns the process's exit status.
  /// `didFinishLaunching` is called once, from within the loop, before any other callback of any service.
  virtual int run(std::function<void()> didFinishLaunching) = 0;

  /// Brings the application's windows in front of other applications' and gives them the keyboard.
  virtual void activateIgnoringOtherApps() = 0;

  /// Ends the event loop in good order.
  virtual void terminate() = 0;
};

}  // namespace roomlattice::platform

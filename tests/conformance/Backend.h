#pragma once

#include "platform/Platform.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace roomlattice::tests {

/// A backend as the conformance tests see it: a platform of its own for each test, and its event loop.
class Backend {
 public:
  virtual ~Backend() = default;

  virtual platform::Platform& platform() = 0;

  /// Serves the event loop until `condition` holds; false when it does not within a generous limit.
  virtual bool runUntil(const std::function<bool()>& condition) = 0;

  /// Serves the event loop for a while, for what must not happen.
  virtual void runFor(std::chrono::milliseconds duration) = 0;

  /// Opens the menu of the program's one status item, as a click on the item does.
  virtual void openMenu() = 0;

  /// Closes the open menu, as a click beside it does.
  virtual void closeMenu() = 0;

  virtual bool isMenuOpen() = 0;

  /// Serves the event loop until the window that the program has shown has the keyboard for good, where that takes
  /// time.
  virtual void waitForKeyboard() {}

  /// Presses Return while the program has the keyboard.
  virtual void pressReturn() = 0;

  /// Another program asks this one to switch to a desktop, where there is a way to; waits for no answer.
  virtual void askForSwitch(const std::string& desktop) = 0;
};

/// Defined once in each test program.
std::unique_ptr<Backend> makeBackend();

/// As KnownGaps.h calls it.
std::string_view backendName();

}  // namespace roomlattice::tests

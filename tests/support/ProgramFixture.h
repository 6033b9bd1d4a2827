#pragma once

#include "app/AppDelegate.h"
#include "tests/support/SimulatedFixture.h"

#include <optional>

namespace roomlattice::tests {

/// The whole program on a simulated desktop. It is not running until the test starts it, so that the test can prepare
/// the desktop first:
///
///   desktop.storedDefaults()["ShowSpaceNameInMenuBar"] = false;
///   startProgram();
///   desktop.advance(2s);
class ProgramFixture : public SimulatedFixture {
 protected:
  using SimulatedFixture::SimulatedFixture;

  /// Launches the program as its entry point does, all but the event loop, whose part desktop.advance takes.
  void startProgram() {
    platform().application().setActivationPolicy(platform::ActivationPolicy::Accessory);
    delegate_.emplace(platform());
    delegate_->applicationDidFinishLaunching();
  }

  /// Ends the program; the desktop stays as it is.
  void quitProgram() {
    delegate_.reset();
    relaunch();
  }

  void restartProgram() {
    quitProgram();
    startProgram();
  }

 private:
  std::optional<AppDelegate> delegate_;
};

}  // namespace roomlattice::tests

#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedTabbedWindow.h"
#include "platform/simulated/SimulatedUser.h"
#include "platform/simulated/SimulatedWindow.h"
#include "support/Installation.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace roomlattice::tests {

using namespace std::chrono_literals;

/// A simulated desktop with three desktops, a user, and a program's platform, installed: what a test of anything that
/// needs a system starts from. Tests read as scripts:
///
///   user.swipes(Right);
///   desktop.advance(300ms);
///   EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
///
/// Objects of a test that use the platform are locals of the test, or members of a derived fixture, which end first.
/// What should be set before the program starts (desktops, stored settings, faults) may be set at the start of the
/// test: the platform reads nothing ahead. Where a first run matters, relaunch() makes another one.
class SimulatedFixture : public ::testing::Test {
 protected:
  using Direction = platform::Direction;
  using enum platform::Direction;

  explicit SimulatedFixture(int desktops = 3) : desktop(desktops) { launch(); }

  /// The platform of the present run.
  platform::simulated::SimulatedPlatform& platform() { return *platform_; }

  /// Ends this run, with the shared instances of the program, and starts another on the same desktop. Nothing of the
  /// program may be left over from the first.
  void relaunch() {
    installation_.reset();
    platform_.reset();
    launch();
  }

  platform::simulated::SimulatedDesktop desktop;
  platform::simulated::SimulatedUser user{desktop};

 private:
  void launch() {
    platform_ = std::make_unique<platform::simulated::SimulatedPlatform>(desktop);
    installation_.emplace(*platform_);
  }

  std::unique_ptr<platform::simulated::SimulatedPlatform> platform_;
  std::optional<Installation> installation_;
};

}  // namespace roomlattice::tests

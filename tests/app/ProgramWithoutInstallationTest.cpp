#include "input/HotCornerWatcher.h"
#include "input/SwipeWatcher.h"
#include "labels/SpaceSignWindowController.h"
#include "menubar/MenuBarController.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedUser.h"
#include "preferences/PreferencesStore.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"

#include <gtest/gtest.h>

#include <chrono>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;

/// All objects of the program, made by hand. Without an installation, one that looked a shared instance up would stop
/// the program.
class ProgramWithoutInstallationTest : public ::testing::Test {
 protected:
  platform::simulated::SimulatedDesktop desktop_{3};
  platform::simulated::SimulatedUser user_{desktop_};
  platform::simulated::SimulatedPlatform platform_{desktop_};
  SpaceManager manager_{platform_};
  PreferencesStore preferences_{platform_, manager_};
  SpaceObserver observer_{platform_.windowServer(), platform_.notifications().workspaceCenter(), manager_};
  PreferencesWindowController window_{platform_, manager_, preferences_};
  MenuBarController menuBar_{platform_, manager_, preferences_, [this] { window_.showWindow(); }};
  SpaceSignWindowController signs_{platform_, manager_, preferences_};
  HotCornerWatcher corner_{platform_};
  SwipeWatcher swipes_{platform_};
};

TEST_F(ProgramWithoutInstallationTest, SwitchesFromItsMenuAndShowsThePreferences) {
  observer_.refresh();
  user_.clicksStatusItem();
  user_.clicksRow(2);
  desktop_.advance(1s);
  EXPECT_EQ(manager_.activeSpaceID(), desktop_.desktopAt(2));
  EXPECT_EQ(desktop_.statusItem()->content().title.text, " Desktop 3 ");
  user_.clicksStatusItem();
  user_.clicksCommand("Preferences\u2026");
  user_.chooses("Palette", "Vivid");
  EXPECT_EQ(preferences_.spaceColors().size(), 3U);
}

}  // namespace
}  // namespace roomlattice::tests

#pragma once

#include "preferences/PreferencesStore.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"
#include "tests/support/SimulatedFixture.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace roomlattice::tests {

/// The preferences window under the user's hands, over the model of the desktop's spaces.
class PreferencesFixture : public SimulatedFixture {
 protected:
  void readSpaces() {
    SpaceObserver(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared())
        .refresh();
  }

  /// Brings the window to the front, with the desktops of the moment when it is made.
  void openPreferences() {
    readSpaces();
    PreferencesWindowController::shared().showWindow();
    takeNotifications();
  }

  /// A new run of the program.
  void relaunchPreferences() {
    observer_.cancel();
    relaunch();
    observer_ = observe();
    openPreferences();
  }

  platform::simulated::SimulatedTabbedWindow& window() { return *desktop.tabbedWindow(); }

  const platform::TabPage& page(std::size_t index) { return window().model().pages.at(index); }

  platform::ControlReference reference(std::string_view name) { return window().find(name).value(); }

  template <class Control>
  const Control& control(std::string_view name) {
    return window().control<Control>(reference(name));
  }

  platform::Rect frame(std::string_view name) {
    const platform::ControlReference found = reference(name);
    return page(found.page).controls.at(found.control).frame;
  }

  PreferencesStore& store() { return PreferencesStore::shared(); }

  const platform::Value& stored(const char* key) { return desktop.storedDefaults()[key]; }

  /// How often a change of the preferences was announced since the last call.
  int takeNotifications() { return std::exchange(notifications_, 0); }

 private:
  platform::Registration observe() {
    return platform().notifications().defaultCenter().observe(PreferencesStore::didChange,
                                                              [this] { ++notifications_; });
  }

  int notifications_ = 0;
  platform::Registration observer_ = observe();
};

}  // namespace roomlattice::tests

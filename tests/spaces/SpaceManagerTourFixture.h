#pragma once

#include "tests/spaces/SpaceManagerFixture.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace roomlattice::tests {

/// Tours, and what is said of them.
class SpaceManagerTourTest : public SpaceManagerFixture {
 protected:
  explicit SpaceManagerTourTest(int desktops = 3) : SpaceManagerFixture(desktops) {
    const auto note = [this](std::string_view name) {
      return platform().notifications().defaultCenter().observe(name, [this, name] { happens(std::string(name)); });
    };
    observations_.push_back(note(SpaceManager::tourWillStart));
    observations_.push_back(note(SpaceManager::tourDidEnd));
  }

  /// From here on, times count from the start of the tour.
  void startTour() {
    follow();
    start_ = desktop.now();
    manager.performAutoTour([this] { happens("completion"); });
  }

  /// No swipe moves anything: the test says when desktops are reported to have changed.
  void startTourByHand() {
    desktop.faults.allSwipesDropped = true;
    startTour();
  }

  platform::Duration elapsed() const { return desktop.now() - start_; }

  void advanceTo(platform::Duration sinceStart) { desktop.advance(sinceStart - elapsed()); }

  void reportsArrivalAt(platform::Duration sinceStart) {
    advanceTo(sinceStart);
    desktop.reportActiveSpaceChange();
  }

  std::vector<Swipe> swipesSinceStart() const {
    std::vector<Swipe> all = swipes();
    for (Swipe& swipe : all) {
      swipe.at -= start_;
    }
    return all;
  }

  static std::string startLine(int steps) { return "[Roomlattice] tour start: " + std::to_string(steps) + " steps"; }
  static std::string retryLine(int step) {
    return "[Roomlattice] tour step " + std::to_string(step) + " retrying swipe";
  }
  static std::string skipLine(int step) {
    return "[Roomlattice] tour step " + std::to_string(step) + " timed out after retry, skipping";
  }
  static constexpr const char* endLine = "[Roomlattice] tour end";
  static constexpr const char* hardTimeoutLine = "[Roomlattice] tour hard timeout after 20s, forcing end";

  std::vector<std::string> logged() { return desktop.log().texts(); }

  void happens(const std::string& event) {
    history.push_back(event);
    if (onEvent) {
      onEvent(event);
    }
  }

  /// The tour's notifications and its completion, in order.
  std::vector<std::string> history;
  std::function<void(const std::string& event)> onEvent;

 private:
  platform::Duration start_{0};
  std::vector<platform::Registration> observations_;
};

}  // namespace roomlattice::tests

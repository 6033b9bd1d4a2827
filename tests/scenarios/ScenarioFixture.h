#pragma once

#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "tests/support/ProgramFixture.h"
#include "tests/support/ShownWindows.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// The whole program and what a person would look at.
class ScenarioFixture : public ProgramFixture {
 protected:
  using ProgramFixture::ProgramFixture;

  /// Starts the program and lets its tour take place, so that every desktop has its label and all is at rest.
  void startAndTour() {
    startProgram();
    desktop.advance(25s);
  }

  void swipesAndArrives(Direction direction) {
    user.swipes(direction);
    desktop.advance(290ms);
  }

  platform::simulated::SimulatedWindow* labelAt(std::size_t index) {
    return labelOn(desktop, desktop.desktopAt(index));
  }

  /// Of the desktop's label; -1 where it has none.
  double alpha(std::size_t index) {
    const auto* label = labelAt(index);
    return label == nullptr ? -1.0 : label->alpha();
  }

  /// Of all desktops, in list order.
  std::vector<double> alphas() {
    std::vector<double> values;
    for (std::size_t index = 0; index < desktop.spaces().regular().size(); ++index) {
      values.push_back(alpha(index));
    }
    return values;
  }

  std::string text(std::size_t index) {
    const auto* label = labelAt(index);
    return label == nullptr ? "no label" : label->texts().at(0);
  }

  std::string title() { return desktop.statusItem()->content().title.text; }

  std::ptrdiff_t logged(const std::string& line) { return std::ranges::count(desktop.log().texts(), line); }

  /// By the log.
  std::ptrdiff_t toursStarted() {
    return std::ranges::count_if(
        desktop.log().texts(), [](const std::string& line) { return line.starts_with("[Roomlattice] tour start: "); });
  }
  std::ptrdiff_t toursEnded() { return logged("[Roomlattice] tour end"); }

  static constexpr platform::Point corner{1.0, 899.0};
  static constexpr platform::Point overTheLabels{720.0, 450.0};
  static constexpr platform::Point aside{720.0, 30.0};
};

}  // namespace roomlattice::tests

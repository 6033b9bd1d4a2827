#pragma once

#include "labels/SpaceSignWindowController.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"
#include "support/Fatal.h"
#include "tests/support/ShownWindows.h"
#include "tests/support/SimulatedFixture.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace roomlattice::tests {

/// The labels and the model they follow, without the rest of the program. With the simulated font and the standard text
/// size, a label is 100 points wide for each character and 160 more, and 320 points high.
class LabelFixture : public SimulatedFixture {
 protected:
  explicit LabelFixture(int desktops = 3) : SimulatedFixture(desktops) {
    earlyObservation_ = platform().notifications().defaultCenter().observe(SpaceManager::activeChanged, [this] {
      if (beforeLabelsHearOfAChange) {
        beforeLabelsHearOfAChange();
      }
    });
  }

  /// Builds what the program builds at launch, in that order.
  void startLabels() {
    observer_.emplace(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared());
    observer_->refresh();
    signs.emplace(platform(), SpaceManager::shared(), PreferencesStore::shared());
  }

  /// Starts them, has every desktop visited, and returns to the first one; all is at rest then, a priming tick just
  /// over.
  void startVisitedLabels() {
    startLabels();
    const std::size_t desktops = desktop.spaces().regular().size();
    for (std::size_t index = 1; index < desktops; ++index) {
      desktop.switchTo(desktop.desktopAt(index));
    }
    desktop.switchTo(desktop.desktopAt(0));
    desktop.advance(1s);
  }

  /// The same, with the next priming tick 400 ms away.
  void startBetweenTicks() {
    startVisitedLabels();
    desktop.advance(100ms);
  }

  /// The same, with the second desktop just arrived at and its label about to fade out.
  void arriveOnTheSecond() {
    startBetweenTicks();
    desktop.switchTo(desktop.desktopAt(1));
  }

  void showAllFully() {
    signs->showAll();
    desktop.advance(500ms);
  }

  std::vector<platform::simulated::SimulatedWindow*> labels() { return labelsOf(desktop); }

  platform::simulated::SimulatedWindow* labelOn(platform::SpaceID space) { return tests::labelOn(desktop, space); }

  /// The label of the desktop at `index`, which must be there.
  platform::simulated::SimulatedWindow& label(std::size_t index) {
    auto* const found = labelOn(desktop.desktopAt(index));
    if (found == nullptr) {
      fatal("there is no such label");
    }
    return *found;
  }

  static unsigned behaviorOf(const platform::simulated::SimulatedWindow& label) {
    return static_cast<unsigned>(label.collectionBehavior());
  }

  double alpha(std::size_t index) { return label(index).alpha(); }

  std::vector<double> alphas() {
    std::vector<double> values;
    for (std::size_t index = 0; index < desktop.spaces().regular().size(); ++index) {
      values.push_back(alpha(index));
    }
    return values;
  }

  static PreferencesStore& preferences() { return PreferencesStore::shared(); }

  void post(std::string_view notification) { platform().notifications().defaultCenter().post(notification); }

  static constexpr platform::Point overTheLabels{720.0, 450.0};
  static constexpr platform::Point besideTheLabels{720.0, 30.0};

  /// Called when the model has another active desktop and the labels have not heard of it yet: what comes between the
  /// two is otherwise not to be caught.
  std::function<void()> beforeLabelsHearOfAChange;

  std::optional<SpaceSignWindowController> signs;

 private:
  platform::Registration earlyObservation_;
  std::optional<SpaceObserver> observer_;
};

}  // namespace roomlattice::tests

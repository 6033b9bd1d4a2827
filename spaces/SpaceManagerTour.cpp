#include "spaces/SpaceManager.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

constexpr platform::Duration hardTimeout = 20s;
constexpr platform::Duration stepTimeout = 1200ms;
constexpr platform::Duration settlingTime = 80ms;

std::string stepLine(int step, const char* outcome) {
  return "[Roomlattice] tour step " + std::to_string(step) + " " + outcome;
}

}  // namespace

void SpaceManager::performAutoTour(std::function<void()> completion) {
  const std::vector<SpaceInfo> regular = regularSpaces(spaces_);
  const auto active = std::ranges::find(regular, activeSpaceID_, &SpaceInfo::spaceID);
  if (regular.size() < 2 || active == regular.end()) {
    if (completion) {
      completion();
    }
    return;
  }
  const std::size_t last = regular.size() - 1;
  const auto start = static_cast<std::size_t>(std::distance(regular.begin(), active));
  tourQueue_.clear();
  tourQueue_.insert(tourQueue_.end(), last - start, ISSDirection::right);
  tourQueue_.insert(tourQueue_.end(), last, ISSDirection::left);
  tourQueue_.insert(tourQueue_.end(), start, ISSDirection::right);
  tourCompletion_ = std::move(completion);
  tourStep_ = 0;
  tourRetried_ = false;
  tourObserver_ = platform_.notifications().workspaceCenter().observe(platform::notification::activeSpaceDidChange,
                                                                      lifetime_.guard([this] { tourSpaceArrived(); }));
  platform_.system().log("[Roomlattice] tour start: " + std::to_string(tourQueue_.size()) + " steps");
  post(tourWillStart);
  // Never cancelled: after a normal end it finds no tour.
  platform_.dispatcher().asyncAfter(hardTimeout, lifetime_.guard([this] {
    if (tourObserver_) {
      platform_.system().log("[Roomlattice] tour hard timeout after 20s, forcing end");
      endTour();
    }
  }));
  advanceTour();
}

bool SpaceManager::isCurrentTourStep(int step) const {
  return tourObserver_ && tourStep_ == step;
}

void SpaceManager::advanceTour() {
  if (!tourObserver_) {
    return;
  }
  if (tourQueue_.empty()) {
    endTour();
    return;
  }
  const ISSDirection direction = tourQueue_.front();
  tourQueue_.pop_front();
  currentTourDirection_ = direction;
  tourRetried_ = false;
  ++tourStep_;
  animatedDockSwipe(direction);
  platform_.dispatcher().asyncAfter(stepTimeout, lifetime_.guard([this, step = tourStep_] { tourStepTimedOut(step); }));
}

void SpaceManager::tourStepTimedOut(int step) {
  if (!isCurrentTourStep(step)) {
    return;
  }
  if (tourRetried_ || !currentTourDirection_) {
    platform_.system().log(stepLine(step, "timed out, advancing"));
    advanceTour();
    return;
  }
  tourRetried_ = true;
  platform_.system().log(stepLine(step, "retrying swipe"));
  animatedDockSwipe(*currentTourDirection_);
  platform_.dispatcher().asyncAfter(stepTimeout, lifetime_.guard([this, step] {
    if (isCurrentTourStep(step)) {
      platform_.system().log(stepLine(step, "timed out after retry, skipping"));
      advanceTour();
    }
  }));
}

void SpaceManager::tourSpaceArrived() {
  platform_.dispatcher().asyncAfter(settlingTime, lifetime_.guard([this, step = tourStep_] {
    if (isCurrentTourStep(step)) {
      advanceTour();
    }
  }));
}

void SpaceManager::endTour() {
  tourObserver_.cancel();
  platform_.system().log("[Roomlattice] tour end");
  post(tourDidEnd);
  if (const std::function<void()> completion = std::exchange(tourCompletion_, nullptr)) {
    completion();
  }
}

}  // namespace roomlattice

#include "spaces/DesktopTour.h"

#include <chrono>
#include <string>
#include <utility>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::Direction;

constexpr platform::Duration hardTimeout = 20s;
constexpr platform::Duration stepTimeout = 1200ms;
constexpr platform::Duration settlingTime = 80ms;

std::string stepLine(int step, const char* outcome) {
  return "[Roomlattice] tour step " + std::to_string(step) + " " + outcome;
}

}  // namespace

DesktopTour::Directions DesktopTour::roundTrip(std::size_t count, std::size_t start) {
  const std::size_t last = count - 1;
  Directions directions(last - start, Direction::Right);
  directions.insert(directions.end(), last, Direction::Left);
  directions.insert(directions.end(), start, Direction::Right);
  return directions;
}

void DesktopTour::start(Directions directions, std::function<void()> completion) {
  run_ = Run{.ahead = std::move(directions), .completion = std::move(completion)};
  run_->arrivals = workspace_.observe(platform::notification::activeSpaceDidChange, [this] { arrived(); });
  system_.log("[Roomlattice] tour start: " + std::to_string(run_->ahead.size()) + " steps");
  onStart();
  run_->timeLimit = dispatcher_.schedule(hardTimeout, [this] { gaveUp(); });
  advance();
}

void DesktopTour::advance() {
  if (!run_) {
    return;
  }
  if (run_->ahead.empty()) {
    end();
    return;
  }
  run_->direction = run_->ahead.front();
  run_->ahead.pop_front();
  run_->retried = false;
  ++run_->step;
  swipe();
  dispatcher_.asyncAfter(stepTimeout, lifetime_.guard([this, step = run_->step] { stepTimedOut(step); }));
}

void DesktopTour::advanceFrom(int step) {
  if (isAt(step)) {
    advance();
  }
}

void DesktopTour::swipe() {
  swipes_.post(run_->direction, SwitchStyle::Animated);
}

void DesktopTour::stepTimedOut(int step) {
  if (!isAt(step)) {
    return;
  }
  if (run_->retried) {
    system_.log(stepLine(step, "timed out, advancing"));
    advance();
    return;
  }
  run_->retried = true;
  system_.log(stepLine(step, "retrying swipe"));
  swipe();
  dispatcher_.asyncAfter(stepTimeout, lifetime_.guard([this, step] { retryTimedOut(step); }));
}

void DesktopTour::retryTimedOut(int step) {
  if (isAt(step)) {
    system_.log(stepLine(step, "timed out after retry, skipping"));
    advance();
  }
}

void DesktopTour::arrived() {
  // The desktop is given a moment to come to rest before the next swipe.
  dispatcher_.asyncAfter(settlingTime, lifetime_.guard([this, step = run_->step] { advanceFrom(step); }));
}

void DesktopTour::gaveUp() {
  system_.log("[Roomlattice] tour hard timeout after 20s, forcing end");
  end();
}

void DesktopTour::end() {
  std::function<void()> completion = std::move(run_->completion);
  run_.reset();
  system_.log("[Roomlattice] tour end");
  onEnd();
  if (run_) {
    // Another tour has begun meanwhile, whose completion has taken the place of this one's.
    completion = std::exchange(run_->completion, nullptr);
  }
  if (completion) {
    completion();
  }
}

}  // namespace roomlattice

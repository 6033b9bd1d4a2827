#include "tests/scenarios/ScenarioWorld.h"

#include "spaces/SpaceManager.h"

#include <chrono>
#include <utility>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Duration;
using platform::Rect;

}  // namespace

ScenarioWorld::ScenarioWorld() {
  reports_ = desktop.announcements().observe(platform::notification::activeSpaceDidChange, [this] { reported(); });
}

ScenarioWorld::~ScenarioWorld() {
  quitProgram();
}

void ScenarioWorld::reported() {
  const bool activeChanged = std::exchange(lastReportedActive_, desktop.activeSpace()) != desktop.activeSpace();
  if (windowServerBroken) {
    return;
  }
  listUnreported = false;
  if (activeChanged) {
    activeLabelMayBeMissing = false;
  }
}

void ScenarioWorld::startProgram() {
  quitProgram();
  platform_ = std::make_unique<platform::simulated::SimulatedPlatform>(desktop);
  installation_.emplace(*platform_);
  tour = {};
  platform::NotificationCenter& center = platform_->notifications().defaultCenter();
  tourReports_ = {center.observe(SpaceManager::tourWillStart,
                                 [this] {
                                   ++tour.started;
                                   tour.startedAt = desktop.now();
                                 }),
                  center.observe(SpaceManager::tourDidEnd, [this] {
                    ++tour.ended;
                    tour.endedAt = desktop.now();
                  })};
  launchedAt_ = desktop.now();
  framesStale = false;
  listUnreported = false;
  activeLabelMayBeMissing = windowServerBroken;
  lastReportedActive_ = desktop.activeSpace();
  delegate_.emplace(*platform_);
  delegate_->applicationDidFinishLaunching();
}

void ScenarioWorld::quitProgram() {
  delegate_.reset();
  installation_.reset();
  platform_.reset();
}

Duration ScenarioWorld::untilNextTick() const {
  constexpr Duration period = 500ms;
  return period - (desktop.now() - launchedAt_) % period;
}

void ScenarioWorld::movesPointerTo(platform::Point point) {
  if (const auto screen = desktop.settings().main()) {
    const Rect& frame = screen->frame;
    if (point.x <= frame.minX() + 5.0 && point.y >= frame.maxY() - 5.0) {
      lastAtCorner = desktop.now();
    }
  }
  user.movesPointerTo(point);
}

void ScenarioWorld::breaksWindowServer() {
  windowServerBroken = true;
  activeLabelMayBeMissing = true;
  desktop.overrideManagedDisplaySpaces(platform::Value("nonsense"));
  desktop.reportActiveSpaceChange();
}

void ScenarioWorld::mendsWindowServer() {
  windowServerBroken = false;
  desktop.overrideManagedDisplaySpaces({});
  desktop.reportActiveSpaceChange();
}

}  // namespace roomlattice::tests

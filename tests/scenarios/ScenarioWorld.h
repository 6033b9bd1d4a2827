#pragma once

#include "app/AppDelegate.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedUser.h"
#include "support/Installation.h"

#include <array>
#include <memory>
#include <optional>

namespace roomlattice::tests {

/// A simulated desktop with a person at it and the program on it, which may be quit and started again; and what the
/// rules need to know of what has happened so far. One at a time.
class ScenarioWorld {
 public:
  ScenarioWorld();
  ~ScenarioWorld();
  ScenarioWorld(const ScenarioWorld&) = delete;
  ScenarioWorld& operator=(const ScenarioWorld&) = delete;

  platform::simulated::SimulatedDesktop desktop;
  platform::simulated::SimulatedUser user{desktop};

  bool isRunning() const { return delegate_.has_value(); }
  void startProgram();

  /// The program's objects go; its platform stays, and may still have work queued.
  void releaseProgram() { delegate_.reset(); }
  void quitProgram();

  /// Of the present run.
  platform::simulated::SimulatedPlatform& platform() { return *platform_; }

  /// The next tick of the priming timer after now.
  platform::Duration untilNextTick() const;

  void movesPointerTo(platform::Point point);

  /// The window server answers nonsense instead of the list of desktops, until it recovers.
  void breaksWindowServer();
  void mendsWindowServer();

  // --- What has happened
  struct Tour {
    int started = 0;
    int ended = 0;
    platform::Duration startedAt{0};
    platform::Duration endedAt{0};

    bool isRunning() const { return started > ended; }
  };

  /// Of the present run.
  Tour tour;

  /// When the pointer was last in the hot corner.
  std::optional<platform::Duration> lastAtCorner;

  /// The list has changed and the workspace has not reported it.
  bool listUnreported = false;

  bool windowServerBroken = false;

  /// The list was lost and came back without another desktop becoming active.
  bool activeLabelMayBeMissing = false;

  /// The keyboard focus went to another screen, which nobody reports.
  bool framesStale = false;

 private:
  void reported();

  std::unique_ptr<platform::simulated::SimulatedPlatform> platform_;
  std::optional<Installation> installation_;
  std::optional<AppDelegate> delegate_;
  platform::Duration launchedAt_{0};
  platform::SpaceID lastReportedActive_ = 0;
  platform::Registration reports_;
  std::array<platform::Registration, 2> tourReports_;
};

}  // namespace roomlattice::tests

#pragma once

#include "labels/SpaceSignWindowController.h"
#include "menubar/MenuBarController.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "spaces/SpaceObserver.h"
#include "support/Installation.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace roomlattice::benchmarks {

/// Model, menu bar and labels on a simulated desktop with so many desktops, each with a label and half of them with
/// stored names and colours; everything at rest, the first desktop active.
class RunningProgram {
 public:
  explicit RunningProgram(int desktops);
  /// Of as many desktops as the benchmark's first argument says.
  explicit RunningProgram(const benchmark::State& state) : RunningProgram(static_cast<int>(state.range(0))) {}

  platform::simulated::SimulatedDesktop desktop;

  platform::Platform& platform() { return *platform_; }
  SpaceObserver& observer() { return *observer_; }
  MenuBarController& menuBar() { return *menuBar_; }
  SpaceSignWindowController& signs() { return *signs_; }

 private:
  void storeNamesAndColors();

  std::optional<platform::simulated::SimulatedPlatform> platform_;
  std::optional<Installation> installation_;
  std::optional<SpaceObserver> observer_;
  std::optional<MenuBarController> menuBar_;
  std::optional<SpaceSignWindowController> signs_;
};

/// 4, 16, 64 and 256 desktops, and how the time grows with them.
inline void overDesktops(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(4)->Range(4, 256)->Complexity();
}

}  // namespace roomlattice::benchmarks

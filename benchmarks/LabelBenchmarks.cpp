#include "benchmarks/RunningProgram.h"
#include "preferences/PreferencesStore.h"

#include <chrono>

namespace roomlattice::benchmarks {
namespace {

using namespace std::chrono_literals;

/// What goes on twice a second for as long as the program runs.
void primingTickAtRest(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    program.desktop.advance(500ms);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(primingTickAtRest)->Apply(overDesktops);

void primingTickWithEveryLabelToSet(benchmark::State& state) {
  RunningProgram program(state);
  double alpha = 0.5;
  for ([[maybe_unused]] const auto step : state) {
    alpha = 1.0 - alpha * 0.99;
    program.desktop.storedDefaults()["SignSwipeAlpha"] = alpha;
    program.desktop.advance(500ms);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(primingTickWithEveryLabelToSet)->Apply(overDesktops);

/// Between the fingers' first move and the labels there must be no delay to be felt.
void swipeBegin(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    program.signs().handleSwipeBegan(platform::Direction::Right);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(swipeBegin)->Apply(overDesktops);

/// As at every notch of the preferences' slider.
void labelTextResized(benchmark::State& state) {
  RunningProgram program(state);
  double points = 100.0;
  for ([[maybe_unused]] const auto step : state) {
    points = points < 200.0 ? points + 1.0 : 100.0;
    PreferencesStore::shared().setSignTextSize(points);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(labelTextResized)->Apply(overDesktops);

}  // namespace
}  // namespace roomlattice::benchmarks

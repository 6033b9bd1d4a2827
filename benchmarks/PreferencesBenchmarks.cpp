#include "benchmarks/RunningProgram.h"
#include "preferences/PreferencesWindowController.h"

namespace roomlattice::benchmarks {
namespace {

/// The window has a row for each desktop, and is built when it is first asked for.
void preferencesBuilt(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    PreferencesWindowController(program.platform(), SpaceManager::shared(), PreferencesStore::shared());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(preferencesBuilt)->Apply(overDesktops);

}  // namespace
}  // namespace roomlattice::benchmarks

#include "benchmarks/RunningProgram.h"
#include "platform/Menu.h"

namespace roomlattice::benchmarks {
namespace {

void titleRefresh(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    program.menuBar().refreshTitle();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(titleRefresh)->Apply(overDesktops);

void menuRebuild(benchmark::State& state) {
  RunningProgram program(state);
  platform::Menu menu;
  for ([[maybe_unused]] const auto step : state) {
    program.menuBar().menuNeedsUpdate(menu);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(menuRebuild)->Apply(overDesktops);

}  // namespace
}  // namespace roomlattice::benchmarks

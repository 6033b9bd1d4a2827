#include "benchmarks/RunningProgram.h"
#include "platform/Menu.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <string>

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

/// Names in files may be of any length.
std::string longName(std::size_t bytes) {
  return std::string(bytes, 'x');
}

/// As long as the first kind, and all of it in one place.
std::string heapedName(std::size_t marks) {
  std::string name = "x";
  for (std::size_t mark = 0; mark < marks; ++mark) {
    name += "\u0301";
  }
  return name;
}

void titleAndMenuWith(benchmark::State& state, const std::string& name) {
  RunningProgram program(4);
  SpaceManager& manager = SpaceManager::shared();
  manager.setName(name, manager.spaces().front());
  platform::Menu menu;
  for ([[maybe_unused]] const auto step : state) {
    program.menuBar().refreshTitle();
    program.menuBar().menuNeedsUpdate(menu);
  }
}

void titleAndMenuWithALongName(benchmark::State& state) {
  titleAndMenuWith(state, longName(static_cast<std::size_t>(state.range(0))));
}
BENCHMARK(titleAndMenuWithALongName)->Arg(10)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void titleAndMenuWithManyMarks(benchmark::State& state) {
  titleAndMenuWith(state, heapedName(static_cast<std::size_t>(state.range(0))));
}
BENCHMARK(titleAndMenuWithManyMarks)->Arg(10)->Arg(20'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace roomlattice::benchmarks

#include "benchmarks/RunningProgram.h"
#include "platform/Value.h"

#include <algorithm>
#include <array>

namespace roomlattice::benchmarks {
namespace {

using platform::Value;

/// The window server's list, and the same with the two first desktops changed about.
std::array<Value, 2> listsOf(const platform::simulated::SimulatedDesktop& desktop) {
  const Value first = desktop.managedDisplaySpaces();
  Value::Array displays = *first.asArray();
  Value::Dictionary display = *displays.front().asDictionary();
  Value::Array spaces = *display.at("Spaces").asArray();
  std::iter_swap(spaces.begin(), spaces.begin() + 1);
  display["Spaces"] = spaces;
  displays.front() = display;
  return {first, displays};
}

/// Most reports of the workspace bring the list that is known already.
void snapshotOfTheSameList(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    program.observer().refresh();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(snapshotOfTheSameList)->Apply(overDesktops);

/// With all that follows from it: the title and every label brought up to date.
void snapshotOfAnotherList(benchmark::State& state) {
  RunningProgram program(state);
  const std::array<Value, 2> lists = listsOf(program.desktop);
  std::size_t next = 1;
  for ([[maybe_unused]] const auto step : state) {
    state.PauseTiming();
    program.desktop.overrideManagedDisplaySpaces(lists.at(next));
    next = 1 - next;
    state.ResumeTiming();
    program.observer().refresh();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(snapshotOfAnotherList)->Apply(overDesktops);

/// One more desktop at the end, and one less again, each with all that follows. It is the same one each time: the
/// settings keep each that there ever was.
void desktopAddedAndRemoved(benchmark::State& state) {
  RunningProgram program(state);
  for ([[maybe_unused]] const auto step : state) {
    const platform::SpaceID added = program.desktop.addDesktop({.uuid = "passing"});
    program.observer().refresh();
    program.desktop.removeDesktop(added);
    program.observer().refresh();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(desktopAddedAndRemoved)->Apply(overDesktops);

}  // namespace
}  // namespace roomlattice::benchmarks

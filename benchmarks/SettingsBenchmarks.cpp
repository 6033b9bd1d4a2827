#include "benchmarks/RunningProgram.h"
#include "preferences/PreferencesStore.h"
#include "support/JsonText.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace roomlattice::benchmarks {
namespace {

/// Colours of desktops that have gone stay in the settings, however many there have been. From 20,000 on they are more
/// than is read.
std::string colorsOf(std::int64_t desktops) {
  const std::string color = R"({"red":0.1,"green":0.5,"blue":0.25,"alpha":1.0})";
  std::string text = "{";
  for (std::int64_t desktop = 0; desktop < desktops; ++desktop) {
    text.append(desktop == 0 ? "\"" : ",\"").append(std::to_string(desktop));
    text.append(R"(":{"foreground":)").append(color).append(R"(,"background":)").append(color).append("}");
  }
  return text + "}";
}

void readingOfColors(benchmark::State& state) {
  const std::string text = colorsOf(state.range(0));
  for ([[maybe_unused]] const auto step : state) {
    benchmark::DoNotOptimize(fromJson(text));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(readingOfColors)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond)->Complexity();

/// With all that follows: what the title, the menu and the preferences get to see.
void changeOfColors(benchmark::State& state) {
  RunningProgram program(4);
  PreferencesStore& preferences = PreferencesStore::shared();
  const std::string text = colorsOf(state.range(0));
  const auto bytes = std::as_bytes(std::span(text));
  platform::Value::Data stored(bytes.begin(), bytes.end());
  for ([[maybe_unused]] const auto step : state) {
    // Another text each time, of the same colours.
    stored.push_back(std::byte{' '});
    program.desktop.storedDefaults()["SpaceColors"] = stored;
    benchmark::DoNotOptimize(preferences.desktopColors());
  }
}
BENCHMARK(changeOfColors)->Arg(4)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace roomlattice::benchmarks

#include "support/JsonText.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <string>

namespace roomlattice::benchmarks {
namespace {

/// Colours of desktops that have gone stay in the settings, however many there have been.
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

}  // namespace
}  // namespace roomlattice::benchmarks

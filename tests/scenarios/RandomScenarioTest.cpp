#include "tests/scenarios/RandomScenario.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace roomlattice::tests {
namespace {

std::optional<std::uint64_t> environmentNumber(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? std::nullopt : std::optional<std::uint64_t>(std::strtoull(text, nullptr, 10));
}

std::string report(std::uint64_t seed, const ScenarioFailure& failure, std::size_t shortest) {
  std::string text = failure.rule + ".\nSeed " + std::to_string(seed) + ", step " + std::to_string(failure.step) +
                     ". To repeat the shortest run of it that fails: ROOMLATTICE_SEED=" + std::to_string(seed) +
                     " ROOMLATTICE_STEPS=" + std::to_string(shortest) + "\nThat run ends with:";
  for (const std::string& act : failure.lastActs) {
    text += "\n  " + act;
  }
  return text;
}

/// The environment's ROOMLATTICE_SEED takes the place of the seed, and ROOMLATTICE_STEPS that of the number of steps.
class RandomScenarioTest : public ::testing::TestWithParam<std::uint64_t> {};

INSTANTIATE_TEST_SUITE_P(Seeds, RandomScenarioTest, ::testing::Range<std::uint64_t>(1, 9));

TEST_P(RandomScenarioTest, KeepsAllRules) {
  const std::uint64_t seed = environmentNumber("ROOMLATTICE_SEED").value_or(GetParam());
  const std::size_t steps = environmentNumber("ROOMLATTICE_STEPS").value_or(3000);
  const std::optional<ScenarioFailure> failure = runRandomScenario(seed, steps);
  if (failure) {
    const std::size_t shortest = shortestFailure(seed, std::min(failure->step, steps));
    FAIL() << report(seed, runRandomScenario(seed, shortest).value_or(*failure), shortest);
  }
}

}  // namespace
}  // namespace roomlattice::tests

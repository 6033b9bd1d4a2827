#pragma once

#include "tests/scenarios/ProgramRules.h"
#include "tests/scenarios/Randomness.h"
#include "tests/scenarios/ScenarioWorld.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// Where a random scenario broke a rule.
struct ScenarioFailure {
  /// Counted from 1; one more than there were to take when it came at the rest afterwards.
  std::size_t step = 0;
  std::string rule;
  /// What was done last, with the time it was done.
  std::vector<std::string> lastActs;
};

/// Starts the program, does so many things at random, looks after each whether all rules hold, and lets everything come
/// to rest. The same seed does the same things however many there are.
std::optional<ScenarioFailure> runRandomScenario(std::uint64_t seed, std::size_t steps);

/// The fewest steps of the seed found to fail, given a number that does.
std::size_t shortestFailure(std::uint64_t seed, std::size_t failingSteps);

}  // namespace roomlattice::tests

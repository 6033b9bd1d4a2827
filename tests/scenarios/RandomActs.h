#pragma once

#include "tests/scenarios/Randomness.h"
#include "tests/scenarios/ScenarioWorld.h"

#include <functional>
#include <vector>

namespace roomlattice::tests {

/// Something a person or the system does.
struct RandomAct {
  const char* name = "";
  /// How often it comes up, compared with the others.
  std::size_t weight = 0;
  /// Does nothing where it is not possible.
  std::function<void(ScenarioWorld&, Randomness&)> perform;
};

/// Everything that can be done without waiting for anything.
const std::vector<RandomAct>& randomActs();

}  // namespace roomlattice::tests

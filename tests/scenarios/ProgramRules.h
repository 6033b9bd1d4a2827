#pragma once

#include "tests/scenarios/ScenarioWorld.h"

#include <optional>
#include <string>

namespace roomlattice::tests {

/// A rule that does not hold, in words.
using BrokenRule = std::optional<std::string>;

/// What holds at any time. Changes nothing.
BrokenRule brokenNow(ScenarioWorld& world);

/// What holds at the next tick of the priming timer, to which it lets time pass.
BrokenRule brokenAtNextTick(ScenarioWorld& world);

/// What holds once the user has let go, nothing is wrong with the system any more and half a minute has passed.
BrokenRule brokenAtRest(ScenarioWorld& world);

/// What holds once the program's objects have gone, for as long as the rest of its process may live.
BrokenRule brokenByLeftovers(ScenarioWorld& world);

}  // namespace roomlattice::tests

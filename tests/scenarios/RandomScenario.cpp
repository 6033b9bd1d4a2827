#include "tests/scenarios/RandomScenario.h"

#include "tests/scenarios/RandomActs.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <numeric>
#include <utility>

namespace roomlattice::tests {
namespace {

constexpr std::size_t rememberedActs = 15;

class RandomRun {
 public:
  explicit RandomRun(std::uint64_t seed) : random_(seed) {}

  std::optional<ScenarioFailure> take(std::size_t steps) {
    world_.startProgram();
    for (std::size_t step = 1; step <= steps; ++step) {
      BrokenRule broken = stepOn();
      if (!broken) {
        broken = brokenNow(world_);
      }
      if (broken) {
        return failure(step, *std::move(broken));
      }
    }
    note("everything comes to rest");
    BrokenRule broken = brokenAtRest(world_);
    return broken ? std::optional(failure(steps + 1, *std::move(broken))) : std::nullopt;
  }

 private:
  BrokenRule stepOn() {
    if (random_.outOf(12)) {
      note("the priming timer ticks");
      BrokenRule broken = brokenAtNextTick(world_);
      // Off the tick again, so that nothing else falls together with a later one.
      world_.desktop.advance(random_.upTo(std::chrono::milliseconds(1)));
      return broken;
    }
    if (random_.outOf(150)) {
      note("everything comes to rest");
      return brokenAtRest(world_);
    }
    if (random_.outOf(world_.isRunning() ? 120 : 4)) {
      return startOrQuit();
    }
    const RandomAct& act = anyAct();
    note(act.name);
    act.perform(world_, random_);
    return {};
  }

  BrokenRule startOrQuit() {
    if (!world_.isRunning()) {
      note("the program starts");
      world_.startProgram();
      return {};
    }
    note("the program quits");
    if (random_.outOf(2)) {
      world_.quitProgram();
      return {};
    }
    world_.releaseProgram();
    BrokenRule broken = brokenByLeftovers(world_);
    world_.quitProgram();
    return broken;
  }

  const RandomAct& anyAct() {
    static const std::size_t total =
        std::accumulate(randomActs().begin(), randomActs().end(), std::size_t{0},
                        [](std::size_t sum, const RandomAct& act) { return sum + act.weight; });
    std::size_t rest = random_.below(total);
    return *std::ranges::find_if(randomActs(), [&rest](const RandomAct& act) {
      const bool chosen = rest < act.weight;
      rest -= std::min(rest, act.weight);
      return chosen;
    });
  }

  void note(const char* act) {
    const double seconds = std::chrono::duration<double>(world_.desktop.now()).count();
    lastActs_.push_back(std::to_string(seconds) + " s: " + act);
    if (lastActs_.size() > rememberedActs) {
      lastActs_.pop_front();
    }
  }

  ScenarioFailure failure(std::size_t step, std::string rule) const {
    return {.step = step, .rule = std::move(rule), .lastActs = {lastActs_.begin(), lastActs_.end()}};
  }

  Randomness random_;
  ScenarioWorld world_;
  std::deque<std::string> lastActs_;
};

}  // namespace

std::optional<ScenarioFailure> runRandomScenario(std::uint64_t seed, std::size_t steps) {
  return RandomRun(seed).take(steps);
}

std::size_t shortestFailure(std::uint64_t seed, std::size_t failingSteps) {
  std::size_t shortest = failingSteps;
  // Whatever comes to rest badly may have been bad for long: try halving, then ever smaller pieces off the end.
  for (std::size_t piece = shortest / 2; piece > 0;) {
    if (piece <= shortest && runRandomScenario(seed, shortest - piece)) {
      shortest -= piece;
      piece = std::max<std::size_t>(shortest / 2, 1);
    } else {
      piece /= 2;
    }
  }
  return shortest;
}

}  // namespace roomlattice::tests

#include "platform/simulated/SimulatedApplication.h"

namespace roomlattice::platform::simulated {

int SimulatedApplication::run(std::function<void()> didFinishLaunching) {
  const Duration end = time_.now() + runLimit_;
  didFinishLaunching();
  bool left = true;
  while (!terminated_ && left && time_.now() < end) {
    left = time_.runNext();
  }
  return terminated_ ? 0 : 1;
}

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "support/InProcessNotifications.h"

#include <array>

namespace roomlattice::platform::simulated {

/// One program's three centres; what the machine announces arrives on the centre it belongs to.
class SimulatedNotifications final : public InProcessNotifications {
 public:
  explicit SimulatedNotifications(SimulatedDesktop& desktop);

 private:
  std::array<Registration, 4> forwards_;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/simulated/SimulatedDesktop.h"
#include "support/InProcessNotificationCenter.h"

#include <array>

namespace roomlattice::platform::simulated {

/// One program's three centres; what the machine announces arrives on the centre it belongs to.
class SimulatedNotifications final : public Notifications {
 public:
  explicit SimulatedNotifications(SimulatedDesktop& desktop);

  NotificationCenter& defaultCenter() override { return default_; }
  NotificationCenter& workspaceCenter() override { return workspace_; }
  NotificationCenter& distributedCenter() override { return distributed_; }

 private:
  InProcessNotificationCenter default_;
  InProcessNotificationCenter workspace_;
  InProcessNotificationCenter distributed_;
  std::array<Registration, 4> forwards_;
};

}  // namespace roomlattice::platform::simulated

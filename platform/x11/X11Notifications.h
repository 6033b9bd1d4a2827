#pragma once

#include "platform/NotificationCenter.h"
#include "support/InProcessNotificationCenter.h"

namespace roomlattice::platform::x11 {

/// The three centres. What the desktop reports reaches the last two through the backend's own watchers.
class X11Notifications final : public Notifications {
 public:
  NotificationCenter& defaultCenter() override { return default_; }
  NotificationCenter& workspaceCenter() override { return workspace_; }
  NotificationCenter& distributedCenter() override { return distributed_; }

 private:
  InProcessNotificationCenter default_;
  InProcessNotificationCenter workspace_;
  InProcessNotificationCenter distributed_;
};

}  // namespace roomlattice::platform::x11

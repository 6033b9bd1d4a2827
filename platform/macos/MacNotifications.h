#pragma once

#import "platform/macos/MacNotificationCenter.h"

namespace roomlattice::platform::macos {

class MacNotifications final : public Notifications {
 public:
  MacNotifications();

  NotificationCenter& defaultCenter() override { return default_; }
  NotificationCenter& workspaceCenter() override { return workspace_; }
  NotificationCenter& distributedCenter() override { return distributed_; }

 private:
  MacNotificationCenter default_;
  MacNotificationCenter workspace_;
  MacNotificationCenter distributed_;
};

}  // namespace roomlattice::platform::macos

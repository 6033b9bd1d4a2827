#pragma once

#import "platform/macos/SystemNotificationCenter.h"

namespace roomlattice::platform::macos {

class MacNotifications final : public Notifications {
 public:
  MacNotifications();

  NotificationCenter& defaultCenter() override { return default_; }
  NotificationCenter& workspaceCenter() override { return workspace_; }
  NotificationCenter& distributedCenter() override { return distributed_; }

 private:
  SystemNotificationCenter default_;
  SystemNotificationCenter workspace_;
  SystemNotificationCenter distributed_;
};

}  // namespace roomlattice::platform::macos

#pragma once

#include "platform/NotificationCenter.h"
#include "support/InProcessNotificationCenter.h"

namespace roomlattice {

/// The three centres of backends whose system has none. What the system reports, the backend's own watchers post.
class InProcessNotifications : public platform::Notifications {
 public:
  platform::NotificationCenter& defaultCenter() final { return default_; }
  platform::NotificationCenter& workspaceCenter() final { return workspace_; }
  platform::NotificationCenter& distributedCenter() final { return distributed_; }

 private:
  InProcessNotificationCenter default_;
  InProcessNotificationCenter workspace_;
  InProcessNotificationCenter distributed_;
};

}  // namespace roomlattice

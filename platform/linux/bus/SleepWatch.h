#pragma once

#include "platform/NotificationCenter.h"
#include "platform/linux/bus/BusService.h"

namespace roomlattice::platform::linux {

/// Hears from logind (org.freedesktop.login1 on the system bus) that the machine has woken from sleep. Without it,
/// nothing is heard.
class SleepWatch {
 public:
  /// Posts didWake to `workspaceCenter`.
  SleepWatch(MessageBus& systemBus, NotificationCenter& workspaceCenter);

 private:
  BusService service_;
  Registration signal_;
};

}  // namespace roomlattice::platform::linux

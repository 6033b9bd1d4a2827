#pragma once

#include "platform/NotificationCenter.h"
#include "platform/linux/bus/MessageBus.h"

namespace roomlattice::platform::linux {

/// Hears from logind (org.freedesktop.login1 on the system bus) that the machine has woken from sleep. Without it,
/// nothing is heard. Main thread only.
class SleepWatch {
 public:
  /// Posts didWake to `workspaceCenter`.
  SleepWatch(MessageBus& systemBus, NotificationCenter& workspaceCenter);

 private:
  void listen();

  MessageBus& systemBus_;
  NotificationCenter& workspaceCenter_;
  Registration connected_;
  Registration signal_;
};

}  // namespace roomlattice::platform::linux

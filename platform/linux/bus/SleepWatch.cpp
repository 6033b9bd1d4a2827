#include "platform/linux/bus/SleepWatch.h"

namespace roomlattice::platform::linux {

SleepWatch::SleepWatch(MessageBus& systemBus, NotificationCenter& workspaceCenter)
    : service_(systemBus, "org.freedesktop.login1") {
  signal_ = service_.observeSignal(
      {.path = "/org/freedesktop/login1", .interface = "org.freedesktop.login1.Manager", .name = "PrepareForSleep"},
      [&workspaceCenter](const BusMessage& message) {
        // True before the machine sleeps, false after.
        if (message.argument<bool>(0) == false) {
          workspaceCenter.post(notification::didWake);
        }
      });
}

}  // namespace roomlattice::platform::linux

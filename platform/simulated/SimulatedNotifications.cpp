#include "platform/simulated/SimulatedNotifications.h"

namespace roomlattice::platform::simulated {

SimulatedNotifications::SimulatedNotifications(SimulatedDesktop& desktop) {
  const auto forward = [&desktop](std::string_view name, NotificationCenter& center) {
    return desktop.announcements().observe(name, [name, &center] { center.post(name); });
  };
  forwards_ = {
      forward(notification::activeSpaceDidChange, workspace_),
      forward(notification::didWake, workspace_),
      forward(notification::didChangeScreenParameters, default_),
      forward(notification::interfaceThemeChanged, distributed_),
  };
}

}  // namespace roomlattice::platform::simulated

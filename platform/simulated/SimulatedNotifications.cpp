#include "platform/simulated/SimulatedNotifications.h"

namespace roomlattice::platform::simulated {

SimulatedNotifications::SimulatedNotifications(SimulatedDesktop& desktop) {
  const auto forward = [&desktop](std::string_view name, NotificationCenter& center) {
    return desktop.announcements().observe(name, [name, &center] { center.post(name); });
  };
  forwards_ = {
      forward(notification::activeSpaceDidChange, workspaceCenter()),
      forward(notification::didWake, workspaceCenter()),
      forward(notification::didChangeScreenParameters, defaultCenter()),
      forward(notification::interfaceThemeChanged, distributedCenter()),
  };
}

}  // namespace roomlattice::platform::simulated

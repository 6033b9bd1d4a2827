#pragma once

#include "platform/Registration.h"

#include <functional>
#include <string>
#include <string_view>

namespace roomlattice::platform {

/// Notifications have a name and nothing else: no sender, no user info.
class NotificationCenter {
 public:
  using Handler = std::function<void()>;

  virtual ~NotificationCenter() = default;

  /// Calls `handler` on every post of `name` until the registration ends.
  virtual Registration observe(std::string_view name, Handler handler) = 0;

  /// Runs the observers of `name` in the order they were registered, before returning. An observer added meanwhile is
  /// not called for this post; one that has ended meanwhile is not called any more.
  virtual void post(std::string_view name) = 0;
};

/// The three centres of a desktop session.
class Notifications {
 public:
  virtual ~Notifications() = default;

  /// Between the parts of this process.
  virtual NotificationCenter& defaultCenter() = 0;

  /// What the session's workspace reports: desktop switches, wake from sleep.
  virtual NotificationCenter& workspaceCenter() = 0;

  /// What any process of the session may report, such as the change between light and dark.
  virtual NotificationCenter& distributedCenter() = 0;
};

/// The platform's own notifications that the program observes.
namespace notification {

/// Workspace centre: another desktop is active. Backends that learn of a changed list of desktops post it then, too.
inline constexpr std::string_view activeSpaceDidChange = "NSWorkspaceActiveSpaceDidChangeNotification";

/// Workspace centre: the machine has woken from sleep.
inline constexpr std::string_view didWake = "NSWorkspaceDidWakeNotification";

/// Default centre: screens were added, removed, moved or resized.
inline constexpr std::string_view didChangeScreenParameters = "NSApplicationDidChangeScreenParametersNotification";

/// Default centre: settings were changed by anybody but this program. Not every backend learns of that.
inline constexpr std::string_view defaultsDidChangeElsewhere = "DefaultsDidChangeElsewhere";

/// Distributed centre: the desktop went from light to dark or back. One change may be told more than once.
inline constexpr std::string_view interfaceThemeChanged = "AppleInterfaceThemeChangedNotification";

}  // namespace notification

}  // namespace roomlattice::platform

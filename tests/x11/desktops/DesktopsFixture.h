#pragma once

#include "platform/x11/desktops/X11Desktops.h"
#include "support/InProcessNotificationCenter.h"
#include "tests/x11/session/EveryWindowManager.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// The desktops of a session, as the program follows them, and what it posts about them.
class FollowedDesktops {
 public:
  explicit FollowedDesktops(const SessionOptions& options) : session(options) {}

  int count() const { return static_cast<int>(desktops.list().desktops.size()); }
  int current() const { return desktops.list().current ? static_cast<int>(*desktops.list().current) : -1; }
  std::vector<std::string> uuids() const {
    std::vector<std::string> uuids;
    for (const platform::x11::Desktop& desktop : desktops.list().desktops) {
      uuids.push_back(desktop.uuid);
    }
    return uuids;
  }

  X11Session session;
  QtApplication qt;
  InProcessNotificationCenter center;
  int posts = 0;
  platform::Registration observation =
      center.observe(platform::notification::activeSpaceDidChange, [this] { ++posts; });
  platform::linux::MessageBus bus{platform::linux::MessageBus::Kind::Session};
  platform::x11::WindowManagerWatch windowManager{qt.connection()};
  platform::x11::X11Desktops desktops{qt.connection(), bus, windowManager, center};
};

/// Three desktops of KWin's, which other programs make and remove.
class FollowedKWinDesktops : public FollowedDesktops {
 public:
  FollowedKWinDesktops() : FollowedDesktops({.windowManager = WindowManagerKind::KWin, .desktops = 3}) {}

  void create(int place) { call("createDesktop", {"uint32:" + std::to_string(place), "string:New"}); }
  void remove(const std::string& uuid) { call("removeDesktop", {"string:" + uuid}); }

 private:
  void call(const std::string& method, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{
        "dbus-send",           "--print-reply",          "--session",
        "--dest=org.kde.KWin", "/VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager." + method};
    command.insert(command.end(), arguments.begin(), arguments.end());
    session.run(command);
  }
};

/// For tests that hold whatever manages the windows.
class OnEveryWindowManager : public ::testing::TestWithParam<WindowManagerKind> {};

}  // namespace roomlattice::tests

#pragma once

#include "platform/linux/storage/LinuxDefaults.h"
#include "platform/x11/X11UserInterface.h"
#include "support/InProcessNotificationCenter.h"
#include "tests/x11/session/EveryWindowManager.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <chrono>
#include <gtest/gtest.h>

namespace roomlattice::tests {

/// A user interface in a session of its own, with all it stands on.
struct UserInterfaceSession {
  explicit UserInterfaceSession(const SessionOptions& options = {},
                                std::chrono::milliseconds longestUnseen = std::chrono::hours(1))
      : session(options),
        userInterface({qt.connection(), windowManager, screens, appearance, desktops, desktopNames, attachments, bus,
                       defaults, center, longestUnseen}) {}

  platform::x11::X11Connection& connection() { return qt.connection(); }

  X11Session session;
  QtApplication qt;
  InProcessNotificationCenter center;
  platform::linux::MessageBus bus{platform::linux::MessageBus::Kind::Session};
  platform::x11::WindowManagerWatch windowManager{qt.connection()};
  platform::x11::X11Desktops desktops{qt.connection(), bus, windowManager, center};
  platform::x11::X11Screens screens{qt.connection(), center};
  platform::x11::X11Appearance appearance{qt.connection(), bus, center};
  platform::x11::WindowAttachments attachments;
  platform::linux::LinuxDefaults defaults{std::nullopt, [](const std::string&) {}};
  platform::x11::X11DesktopNames desktopNames{desktops, defaults, center};
  platform::x11::X11UserInterface userInterface;
};

}  // namespace roomlattice::tests

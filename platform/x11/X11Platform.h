#pragma once

#include "platform/Platform.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/bus/SleepWatch.h"
#include "platform/linux/control/LinuxControlEndpoint.h"
#include "platform/linux/storage/LinuxDefaults.h"
#include "platform/linux/storage/SettingsWatch.h"
#include "platform/linux/system/LinuxDispatcher.h"
#include "platform/linux/system/LinuxSystem.h"
#include "platform/linux/system/TerminationSignals.h"
#include "platform/x11/AccessibilityWatch.h"
#include "platform/x11/X11Application.h"
#include "platform/x11/X11UserInterface.h"
#include "platform/x11/appearance/X11Appearance.h"
#include "platform/x11/connection/InstanceLock.h"
#include "platform/x11/connection/SessionGuard.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Screens.h"
#include "platform/x11/desktops/WindowAttachments.h"
#include "platform/x11/desktops/X11DesktopNames.h"
#include "platform/x11/desktops/X11Desktops.h"
#include "platform/x11/desktops/X11WindowServer.h"
#include "platform/x11/input/X11Events.h"
#include "support/InProcessNotifications.h"
#include "support/JsonText.h"

#include <memory>
#include <optional>

namespace roomlattice::platform::x11 {

/// A Linux desktop on X11. One in a process, on the main thread.
class X11Platform final : public Platform {
 public:
  /// Takes over a connection to a display with a window manager, and the claim to it. The others must outlive the
  /// platform.
  X11Platform(std::unique_ptr<X11Connection> connection, std::unique_ptr<InstanceLock> lock,
              const linux::TerminationSignals& signals, int& argc, char** argv);
  ~X11Platform() override;

  Application& application() override { return application_; }
  ControlEndpoint& control() override { return control_; }
  Defaults& defaults() override { return defaults_; }
  DesktopNames& desktopNames() override { return desktopNames_; }
  Dispatcher& dispatcher() override { return dispatcher_; }
  Events& events() override { return events_; }
  JsonCodec& json() override { return json_; }
  Notifications& notifications() override { return notifications_; }
  System& system() override { return system_; }
  UserInterface& userInterface() override { return userInterface_; }
  WindowServer& windowServer() override { return windowServer_; }

 private:
  /// Where the process is about to end without this object ending.
  void finishWriting();

  std::unique_ptr<X11Connection> connection_;
  std::unique_ptr<InstanceLock> lock_;
  X11Application application_;
  InProcessNotifications notifications_;
  linux::LinuxSystem system_;
  linux::LinuxDefaults defaults_;
  JsonTextCodec json_;
  linux::LinuxDispatcher dispatcher_;
  linux::MessageBus sessionBus_;
  AccessibilityWatch accessibility_;
  linux::LinuxControlEndpoint control_;
  linux::MessageBus systemBus_;
  WindowManagerWatch windowManager_;
  SessionGuard guard_;
  X11Desktops desktops_;
  X11DesktopNames desktopNames_;
  WindowAttachments attachments_;
  X11WindowServer windowServer_;
  X11Screens screens_;
  X11Appearance appearance_;
  linux::SleepWatch sleep_;
  X11Events events_;
  X11UserInterface userInterface_;
  std::optional<linux::SettingsWatch> settingsWatch_;
  Registration termination_;
};

}  // namespace roomlattice::platform::x11

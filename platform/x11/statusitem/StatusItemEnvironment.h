#pragma once

#include "platform/Defaults.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/x11/appearance/X11Appearance.h"
#include "platform/x11/connection/CompositorWatch.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/X11DesktopNames.h"
#include "platform/x11/desktops/X11Desktops.h"

namespace roomlattice::platform::x11 {

/// What the status item stands on, however it is shown. All of it outlives the item.
struct StatusItemEnvironment {
  X11Connection& connection;
  WindowManagerWatch& windowManager;
  X11Appearance& appearance;
  CompositorWatch& compositor;
  X11Desktops& desktops;
  X11DesktopNames& desktopNames;
  linux::MessageBus& sessionBus;
  Defaults& defaults;
  NotificationCenter& defaultCenter;
};

}  // namespace roomlattice::platform::x11

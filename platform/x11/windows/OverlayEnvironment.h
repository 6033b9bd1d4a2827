#pragma once

#include "platform/x11/connection/CompositorWatch.h"
#include "platform/x11/connection/GlyphSet.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/PictureFormats.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/connection/X11Screens.h"
#include "platform/x11/desktops/WindowAttachments.h"
#include "platform/x11/desktops/X11Desktops.h"
#include "platform/x11/windows/OverlayManagement.h"
#include "platform/x11/windows/OverlayStack.h"

#include <chrono>

namespace roomlattice::platform::x11 {

/// What all overlay windows stand on. It outlives them.
struct OverlayEnvironment {
  X11Connection& connection;
  WindowManagerWatch& windowManager;
  X11Screens& screens;
  X11Desktops& desktops;
  WindowAttachments& attachments;
  CompositorWatch& compositor;
  OverlayManagement& management;
  /// After so long the window manager is relieved of a window that is not to be seen, and not on the desktop in front.
  std::chrono::milliseconds longestUnseen;
  OverlayStack stack;
  PictureFormats formats{connection};
  GlyphSet glyphs{toolkitConnection(), formats};
};

}  // namespace roomlattice::platform::x11

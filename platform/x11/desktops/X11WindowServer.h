#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/WindowAttachments.h"
#include "platform/x11/desktops/X11Desktops.h"

namespace roomlattice::platform::x11 {

/// The desktops as one display's, and EWMH's way to put windows on them. Window numbers are X window identifiers.
///
/// A window is on one desktop here, so that putting it on another one takes it off the first, and taking it off the
/// only one it is on leaves it there.
class X11WindowServer final : public WindowServer {
 public:
  X11WindowServer(X11Connection& connection, X11Desktops& desktops, WindowAttachments& attachments)
      : connection_(connection), desktops_(desktops), attachments_(attachments) {}

  Value managedDisplaySpaces() override;
  SpaceID activeSpace() override;
  void addWindowToSpace(WindowNumber window, SpaceID space) override;
  void removeWindowFromSpace(WindowNumber window, SpaceID space) override;

 private:
  X11Connection& connection_;
  X11Desktops& desktops_;
  WindowAttachments& attachments_;
};

}  // namespace roomlattice::platform::x11

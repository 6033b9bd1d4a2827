#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/desktops/WindowAttachments.h"
#include "platform/x11/desktops/X11Desktops.h"

#include <utility>
#include <vector>

namespace roomlattice::platform::x11 {

/// The desktops as one display's. Window numbers are X window identifiers.
///
/// A window is on one desktop here, so that putting it on another one takes it off the first, and taking it off the
/// only one it is on leaves it there.
class X11WindowServer final : public WindowServer {
 public:
  X11WindowServer(int screenNumber, X11Desktops& desktops, WindowAttachments& attachments)
      : screenNumber_(screenNumber), desktops_(desktops), attachments_(attachments) {}

  Value managedDisplaySpaces() override;
  SpaceID activeSpace() override;
  void addWindowToSpace(WindowNumber window, SpaceID space) override;
  void removeWindowFromSpace(WindowNumber window, SpaceID space) override;

 private:
  void bringUpToDate(const std::vector<Desktop>& desktops);

  int screenNumber_;
  X11Desktops& desktops_;
  WindowAttachments& attachments_;
  // Of the desktops as they were last asked for: most are the same the next time.
  std::vector<std::pair<Desktop, Value>> dictionaries_;
};

}  // namespace roomlattice::platform::x11

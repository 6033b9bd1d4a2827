#pragma once

#include "platform/WindowServer.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/X11Desktops.h"
#include "platform/x11/windows/KeyboardClaim.h"

#include <optional>

namespace roomlattice::platform::x11 {

/// The program takes the user to other desktops and back, as long as this lives. Keys are swallowed meanwhile: whatever
/// window happens to have the keyboard on the way did not ask for them. At the end the user is on the desktop where it
/// began, however far the way there has come, and the window that had the keyboard has it again.
class Excursion {
 public:
  Excursion(X11Connection& connection, X11Desktops& desktops);
  ~Excursion();
  Excursion(const Excursion&) = delete;
  Excursion& operator=(const Excursion&) = delete;

 private:
  void holdKeyboard();
  void returnHome();
  void giveFocusBack();

  X11Connection& connection_;
  X11Desktops& desktops_;
  std::optional<SpaceID> home_;
  xcb_window_t activeWindow_;
  xcb_window_t focus_;
  bool returning_ = false;
  KeyboardClaim keyboard_;
  linux::OneShotTimer retry_{[this] { holdKeyboard(); }};
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/x11/connection/NativeWindow.h"

#include <QPoint>
#include <QWidget>
#include <functional>
#include <optional>

namespace roomlattice::platform::x11 {

/// The wish that keys come to this program, as long as this lives. Under Xwayland a grab holds only the keys that the
/// compositor gives to X clients, so there a window that cannot be seen becomes the active one. Elsewhere grabs do, and
/// this does nothing.
class KeyboardClaim {
 public:
  /// `place`, in Qt's coordinates, is on the screen where the user is. `lost` is called from the event loop when keys
  /// have come here and now go elsewhere; it may end this object.
  KeyboardClaim(X11Connection& connection, QPoint place, std::function<void()> lost);
  KeyboardClaim(const KeyboardClaim&) = delete;
  KeyboardClaim& operator=(const KeyboardClaim&) = delete;

 private:
  void showWindow(QPoint place);
  void activeWindowChanged();

  X11Connection& connection_;
  std::function<void()> lost_;
  QWidget window_;
  std::optional<NativeWindow> native_;
  bool held_ = false;
  Registration changes_;
};

}  // namespace roomlattice::platform::x11

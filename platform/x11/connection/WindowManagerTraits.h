#pragma once

#include <string_view>

namespace roomlattice::platform::x11 {

/// What makes a desktop the same one as before.
enum class DesktopIdentity {
  /// Its place in the row.
  Position,
  /// Its name: for window managers that make and drop desktops by name, so that places shift.
  Name,
};

/// In what a window manager differs from the others. The defaults are what most do.
struct WindowManagerTraits {
  DesktopIdentity desktopIdentity = DesktopIdentity::Position;
  /// It tells its desktops, with identifiers that it keeps, on the session bus as well.
  bool tellsDesktopsOnTheBus = false;
  /// It keeps an opacity of its own for its frames, whatever the window in them asks for.
  bool ignoresOpacity = false;
  /// It does not hand a window's opacity on to the frame around it, which is what compositors beside it read.
  bool keepsOpacityFromFrames = false;
  /// It makes docks as wide as the screen, and does not always tell them so. Asked for that width, it has nothing to
  /// tell.
  bool makesStripsOfDocks = false;
  /// It keeps docks above windows that fill the screen.
  bool keepsDocksAboveFullScreen = false;
  /// It gives every ordinary window all buttons, whatever the window asks for, and toolbars the one that closes them.
  bool minimizesAllButToolbars = false;
  /// The panel is its own, there as soon as itself, and no window.
  bool hasPanel = false;
  /// An overlay window may be on its desktop while that is not in front. Where it may not, because it would get a wrong
  /// place or keep a desktop alive that would go, it is on all desktops and shown only in time.
  bool letsOverlaysWait = true;
};

/// `name` is what the window manager calls itself. The only place that knows any by name.
WindowManagerTraits traitsOf(std::string_view name);

}  // namespace roomlattice::platform::x11

#pragma once

#include <string_view>

namespace roomlattice::platform::linux {

/// In what a host of status items differs from the others. The defaults are what most do.
///
/// Measured with xfce4-panel 4.18 and 4.20, mate-panel 1.26 and 1.27, lxqt-panel 1.2 and 2.1, Plasma's panel 6.3,
/// waybar 0.12 and gnome-shell 43 with its AppIndicator extension: with a Menu property and ItemIsMenu false all but
/// GNOME call Activate on a left click and open the exported menu on a right click. GNOME opens the exported menu on
/// both, calls SecondaryActivate for the middle button and Activate for a double click. The places that MATE tells with
/// its calls are wrong, and for each step of the wheel waybar tells two.
struct TrayTraits {
  /// It keeps pictures that are wider than high; others shrink them into a square. A label replaces the picture there,
  /// even an empty one.
  bool keepsWidePictures = false;
  /// A click opens the menu that the item exports; it never asks the item to open one itself.
  bool opensExportedMenus = false;
  /// When the wheel turns down it tells a positive amount.
  bool countsScrollingDown = false;

  bool operator==(const TrayTraits&) const = default;
};

/// `program` is the name of the program that owns the watcher's name, as the system has it: its first fifteen bytes.
/// The only place that knows any by name.
TrayTraits trayTraitsOf(std::string_view program);

}  // namespace roomlattice::platform::linux

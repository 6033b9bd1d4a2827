#include "platform/linux/tray/TrayTraits.h"

namespace roomlattice::platform::linux {

TrayTraits trayTraitsOf(std::string_view program) {
  // MATE's notification area is a program of its own or a part of the panel.
  if (program == "notification-ar" || program == "mate-panel") {
    return {.keepsWidePictures = true};
  }
  if (program == "gnome-shell") {
    return {.opensExportedMenus = true};
  }
  if (program == "xfce4-panel" || program == "waybar") {
    return {.countsScrollingDown = true};
  }
  return {};
}

}  // namespace roomlattice::platform::linux

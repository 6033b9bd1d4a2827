#include "platform/linux/tray/TrayTraits.h"

namespace roomlattice::platform::linux {
namespace {

/// Its status tray is a program of its own, which bears its place in the panel up to version 4.18.
bool isXfcePanel(std::string_view program) {
  return program == "xfce4-panel" || program == "wrapper-2.0" ||
         (program.starts_with("panel-") && program.find("-systra") != std::string_view::npos);
}

}  // namespace

TrayTraits trayTraitsOf(std::string_view program) {
  // MATE's notification area is a program of its own or a part of the panel.
  if (program == "notification-ar" || program == "mate-panel") {
    return {.keepsWidePictures = true};
  }
  if (program == "gnome-shell") {
    return {.opensExportedMenus = true};
  }
  if (isXfcePanel(program) || program == "waybar") {
    return {.countsScrollingDown = true};
  }
  return {};
}

}  // namespace roomlattice::platform::linux

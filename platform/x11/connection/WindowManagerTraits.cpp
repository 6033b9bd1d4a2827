#include "platform/x11/connection/WindowManagerTraits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

using Entry = std::pair<std::string_view, WindowManagerTraits>;

constexpr std::array table = {
    Entry{"KWin", {.tellsDesktopsOnTheBus = true}},
    Entry{"i3", {.desktopIdentity = DesktopIdentity::Name, .makesStripsOfDocks = true, .letsOverlaysWait = false}},
    Entry{"GNOME Shell", {.hasPanel = true, .letsOverlaysWait = false}},
    Entry{"Mutter (Muffin)", {.hasPanel = true}},
    Entry{"Openbox", {.minimizesAllButToolbars = true}},
    Entry{"Xfwm4", {.keepsOpacityFromFrames = true, .keepsDocksAboveFullScreen = true}},
    Entry{"Fluxbox", {.ignoresOpacity = true}},
};

}  // namespace

WindowManagerTraits traitsOf(std::string_view name) {
  const auto* const found = std::ranges::find(table, name, &Entry::first);
  return found == table.end() ? WindowManagerTraits() : found->second;
}

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/UserInterface.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace roomlattice::platform::simulated {

/// What the screens are and how the desktop looks. Screens stand for themselves: which displays the window server lists
/// desktops for is set apart from them.
struct DisplaySettings {
  std::vector<Screen> screens = {{.frame = {{0.0, 0.0}, {1440.0, 900.0}}}};
  /// The index of the screen with the keyboard focus; one that does not exist means that no screen has it.
  std::optional<std::size_t> mainScreen = 0;
  std::optional<Appearance> appearance = Appearance::Light;
  Color accentColor{0.0, 0.5, 1.0, 1.0};

  std::optional<Screen> main() const {
    return mainScreen && *mainScreen < screens.size() ? std::optional(screens[*mainScreen]) : std::nullopt;
  }
};

}  // namespace roomlattice::platform::simulated

#include "labels/LabelScreen.h"

#include "support/Fatal.h"

#include <optional>
#include <vector>

namespace roomlattice {

platform::Screen labelScreen(const platform::UserInterface& userInterface) {
  if (const std::optional<platform::Screen> main = userInterface.mainScreen()) {
    return *main;
  }
  const std::vector<platform::Screen> screens = userInterface.screens();
  if (screens.empty()) {
    fatal("there is no screen to show labels on");
  }
  return screens.front();
}

}  // namespace roomlattice

#include "labels/SignPlacement.h"

#include "support/Fatal.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace roomlattice {
namespace {

constexpr double horizontalMargin = 80.0;
constexpr double verticalMargin = 60.0;
constexpr double widestShareOfScreen = 0.9;
constexpr double highestShareOfScreen = 0.6;

}  // namespace

platform::Screen signScreen(const platform::UserInterface& userInterface) {
  if (const std::optional<platform::Screen> main = userInterface.mainScreen()) {
    return *main;
  }
  const std::vector<platform::Screen> screens = userInterface.screens();
  if (screens.empty()) {
    fatal("there is no screen to show labels on");
  }
  return screens.front();
}

platform::Rect SignPlacement::frameOf(const std::string& text) const {
  const platform::Size measured = userInterface_.measure(text, font_);
  const double width = std::min(measured.width + 2 * horizontalMargin, screen_.size.width * widestShareOfScreen);
  const double height = std::min(measured.height + 2 * verticalMargin, screen_.size.height * highestShareOfScreen);
  return {{screen_.midX() - width * 0.5, screen_.midY() - height * 0.5}, {width, height}};
}

}  // namespace roomlattice

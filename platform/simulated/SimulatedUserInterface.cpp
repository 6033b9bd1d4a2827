#include "platform/simulated/SimulatedUserInterface.h"

#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedTabbedWindow.h"
#include "platform/simulated/SimulatedWindow.h"
#include "platform/simulated/TextMetrics.h"

namespace roomlattice::platform::simulated {
namespace {

constexpr double titleBarHeight = 28.0;

Rect centered(Size size, const Rect& around) {
  return {{around.midX() - size.width * 0.5, around.midY() - size.height * 0.5}, size};
}

}  // namespace

std::vector<Screen> SimulatedUserInterface::screens() const {
  return desktop_.settings().screens;
}

std::optional<Screen> SimulatedUserInterface::mainScreen() const {
  return desktop_.settings().main();
}

std::optional<Appearance> SimulatedUserInterface::effectiveAppearance() const {
  return desktop_.settings().appearance;
}

Color SimulatedUserInterface::accentColor() const {
  return desktop_.settings().accentColor;
}

double SimulatedUserInterface::systemFontSize() const {
  return systemFontPoints;
}

Size SimulatedUserInterface::measure(const std::string& text, const Font& font) const {
  return measureText(text, font);
}

Size SimulatedUserInterface::intrinsicSize(const Control& control) const {
  return intrinsicSizeOf(control);
}

std::unique_ptr<StatusItem> SimulatedUserInterface::createStatusItem(const StatusItemLength& length) {
  return std::make_unique<SimulatedStatusItem>(length, desktop_.settings(), desktop_.faults, desktop_.statusBar());
}

std::unique_ptr<Window> SimulatedUserInterface::createOverlayWindow(const OverlayWindowOptions& options) {
  return std::make_unique<SimulatedWindow>(options, desktop_.time(), dispatcher_, desktop_.spaces(),
                                           desktop_.windows());
}

std::unique_ptr<TabbedWindow> SimulatedUserInterface::createTabbedWindow(const TabbedWindowModel& model) {
  const Size size{model.contentSize.width, model.contentSize.height + titleBarHeight};
  const std::optional<Screen> screen = desktop_.settings().main();
  const Rect frame = screen ? centered(size, screen->frame) : Rect{{}, size};
  return std::make_unique<SimulatedTabbedWindow>(model, frame, desktop_.windows());
}

}  // namespace roomlattice::platform::simulated

#include "platform/x11/X11UserInterface.h"

#include "platform/x11/drawing/Text.h"
#include "platform/x11/preferences/NativeControls.h"
#include "platform/x11/preferences/X11TabbedWindow.h"
#include "platform/x11/statusitem/X11StatusItem.h"

namespace roomlattice::platform::x11 {
namespace {

// More than anybody has desktops; names are short.
constexpr std::size_t mostMeasured = 2000;

}  // namespace

X11UserInterface::X11UserInterface(const UserInterfaceEnvironment& environment)
    : environment_(environment),
      compositor_(environment.connection),
      overlayManagement_(environment.connection, environment.windowManager),
      overlays_{environment.connection, environment.windowManager, environment.screens,
                environment.desktops,   environment.attachments,   compositor_,
                overlayManagement_,     environment.longestUnseen, {}} {}

double X11UserInterface::systemFontSize() const {
  return x11::systemFontSize();
}

Size X11UserInterface::measure(const std::string& text, const Font& font) const {
  if (measuredCount_ >= mostMeasured) {
    measured_.clear();
    measuredCount_ = 0;
  }
  const QFont shown = toQt(font);
  const auto [entry, isNew] = measured_[shown].try_emplace(text);
  if (isNew) {
    ++measuredCount_;
    entry->second = measureText(text, shown);
  }
  return entry->second;
}

Size X11UserInterface::intrinsicSize(const Control& control) const {
  return x11::intrinsicSize(control);
}

std::unique_ptr<StatusItem> X11UserInterface::createStatusItem(const StatusItemLength& length) {
  return std::make_unique<X11StatusItem>(
      StatusItemEnvironment{environment_.connection, environment_.windowManager, environment_.appearance, compositor_,
                            environment_.desktops, environment_.desktopNames, environment_.sessionBus,
                            environment_.defaults, environment_.defaultCenter},
      length);
}

std::unique_ptr<Window> X11UserInterface::createOverlayWindow(const OverlayWindowOptions& options) {
  return std::make_unique<X11Window>(overlays_, options);
}

std::unique_ptr<TabbedWindow> X11UserInterface::createTabbedWindow(const TabbedWindowModel& model) {
  return std::make_unique<X11TabbedWindow>(model, environment_.connection, environment_.windowManager,
                                           environment_.desktops);
}

}  // namespace roomlattice::platform::x11

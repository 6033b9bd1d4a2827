#pragma once

#include "platform/UserInterface.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedDispatcher.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedUserInterface final : public UserInterface {
 public:
  SimulatedUserInterface(SimulatedDesktop& desktop, SimulatedDispatcher& dispatcher)
      : desktop_(desktop), dispatcher_(dispatcher) {}

  std::vector<Screen> screens() const override;
  std::optional<Screen> mainScreen() const override;
  std::optional<Appearance> effectiveAppearance() const override;
  Color accentColor() const override;
  double systemFontSize() const override;
  Size measure(const std::string& text, const Font& font) const override;
  Size intrinsicSize(const Control& control) const override;
  std::unique_ptr<StatusItem> createStatusItem(const StatusItemLength& length) override;
  std::unique_ptr<Window> createOverlayWindow(const OverlayWindowOptions& options) override;
  std::unique_ptr<TabbedWindow> createTabbedWindow(const TabbedWindowModel& model) override;

 private:
  SimulatedDesktop& desktop_;
  SimulatedDispatcher& dispatcher_;
};

}  // namespace roomlattice::platform::simulated

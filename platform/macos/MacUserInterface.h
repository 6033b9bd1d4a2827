#pragma once

#include "platform/UserInterface.h"

namespace roomlattice::platform::macos {

class MacUserInterface final : public UserInterface {
 public:
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
};

}  // namespace roomlattice::platform::macos

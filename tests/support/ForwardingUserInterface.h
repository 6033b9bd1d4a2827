#pragma once

#include "platform/UserInterface.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// Hands everything on to another user interface; see ForwardingPlatform.
class ForwardingUserInterface : public platform::UserInterface {
 public:
  explicit ForwardingUserInterface(platform::UserInterface& inner) : inner_(inner) {}

  std::vector<platform::Screen> screens() const override { return inner_.screens(); }
  std::optional<platform::Screen> mainScreen() const override { return inner_.mainScreen(); }
  std::optional<platform::Appearance> effectiveAppearance() const override { return inner_.effectiveAppearance(); }
  platform::Color accentColor() const override { return inner_.accentColor(); }
  double systemFontSize() const override { return inner_.systemFontSize(); }
  platform::Size measure(const std::string& text, const platform::Font& font) const override {
    return inner_.measure(text, font);
  }
  platform::Size intrinsicSize(const platform::Control& control) const override {
    return inner_.intrinsicSize(control);
  }
  std::unique_ptr<platform::StatusItem> createStatusItem(const platform::StatusItemLength& length) override {
    return inner_.createStatusItem(length);
  }
  std::unique_ptr<platform::Window> createOverlayWindow(const platform::OverlayWindowOptions& options) override {
    return inner_.createOverlayWindow(options);
  }
  std::unique_ptr<platform::TabbedWindow> createTabbedWindow(const platform::TabbedWindowModel& model) override {
    return inner_.createTabbedWindow(model);
  }

 private:
  platform::UserInterface& inner_;
};

}  // namespace roomlattice::tests

#pragma once

#include "platform/ControlEndpoint.h"
#include "support/Listeners.h"

#include <functional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// Keeps what it was told to do, and answers as the test wants.
class FakeCommands final : public platform::Commands {
 public:
  std::vector<platform::DesktopState> desktops() const override { return list; }
  std::optional<platform::DesktopState> currentDesktop() const override {
    for (const platform::DesktopState& desktop : list) {
      if (desktop.isActive) {
        return desktop;
      }
    }
    return std::nullopt;
  }

  platform::CommandResult switchTo(const std::string& desktop) override { return told("switch " + desktop); }
  platform::CommandResult switchToNext() override { return told("next"); }
  platform::CommandResult switchToPrevious() override { return told("previous"); }
  platform::CommandResult rename(const std::string& desktop, const std::string& name) override {
    return told("rename " + desktop + " to " + name);
  }
  platform::CommandResult renameCurrent(const std::string& name) override { return told("rename to " + name); }
  platform::CommandResult showLabels() override { return told("show labels"); }
  platform::CommandResult hideLabels() override { return told("hide labels"); }
  platform::CommandResult openMenu() override { return told("menu"); }
  platform::CommandResult openPreferences() override { return told("preferences"); }
  platform::CommandResult startTour() override { return told("tour"); }
  platform::CommandResult quit() override { return told("quit"); }

  platform::Registration observe(std::function<void(const std::vector<platform::DesktopChange>&)> handler) override {
    return listeners_.add(std::move(handler));
  }

  void tell(const std::vector<platform::DesktopChange>& changes) { listeners_.notify(changes); }

  std::vector<platform::DesktopState> list{
      {.number = 1, .name = "Mail", .color = {1.0, 0.0, 0.0}, .isActive = true, .uuid = "a", .display = "D"},
      {.number = std::nullopt, .name = "Film", .color = {0.0, 1.0, 0.0}, .uuid = "b", .display = "D"},
      {.number = 2, .name = "Größe", .color = {0.0, 0.0, 1.0}, .uuid = "c", .display = "E"}};
  std::vector<std::string> record;
  platform::CommandResult result;

 private:
  platform::CommandResult told(const std::string& what) {
    record.push_back(what);
    return result;
  }

  Listeners<const std::vector<platform::DesktopChange>&> listeners_;
};

}  // namespace roomlattice::tests

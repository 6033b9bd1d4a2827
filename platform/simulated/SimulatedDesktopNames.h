#pragma once

#include "platform/DesktopNames.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedDesktopNames final : public DesktopNames {
 public:
  explicit SimulatedDesktopNames(SimulatedDesktop& desktop) : desktop_(desktop) {}

  const Names* known() override {
    const std::optional<Names>& all = desktop_.names().all();
    return all ? &*all : nullptr;
  }

  void set(const std::string& uuid, const std::string& name) override {
    const std::vector<Space> spaces = desktop_.spaces().all();
    if (std::ranges::find(spaces, uuid, &Space::uuid) != spaces.end()) {
      desktop_.names().ask(uuid, name);
    }
  }

  Registration observe(std::function<void()> handler) override { return desktop_.names().observe(std::move(handler)); }

 private:
  SimulatedDesktop& desktop_;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/DesktopNames.h"

namespace roomlattice {

/// For backends whose system has no names for desktops.
class NoDesktopNames final : public platform::DesktopNames {
 public:
  const Names* known() override { return nullptr; }
  void set(const std::string&, const std::string&) override {}
  platform::Registration observe(std::function<void()>) override { return {}; }
};

}  // namespace roomlattice

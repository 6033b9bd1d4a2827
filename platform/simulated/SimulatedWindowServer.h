#pragma once

#include "platform/WindowServer.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace roomlattice::platform::simulated {

class SimulatedWindowServer final : public WindowServer {
 public:
  explicit SimulatedWindowServer(SimulatedDesktop& desktop) : desktop_(desktop) {}

  Value managedDisplaySpaces() override { return desktop_.managedDisplaySpaces(); }
  SpaceID activeSpace() override { return desktop_.reportedActiveSpace(); }
  void addWindowToSpace(WindowNumber window, SpaceID space) override;
  void removeWindowFromSpace(WindowNumber window, SpaceID space) override;

 private:
  SimulatedDesktop& desktop_;
};

}  // namespace roomlattice::platform::simulated

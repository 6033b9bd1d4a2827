#include "platform/simulated/SimulatedWindowServer.h"

#include "platform/simulated/SimulatedWindow.h"

namespace roomlattice::platform::simulated {

void SimulatedWindowServer::addWindowToSpace(WindowNumber window, SpaceID space) {
  SimulatedWindow* const found = desktop_.windows().find(window);
  if (found != nullptr && desktop_.spaces().find(space)) {
    found->attach(space);
  }
}

void SimulatedWindowServer::removeWindowFromSpace(WindowNumber window, SpaceID space) {
  if (SimulatedWindow* const found = desktop_.windows().find(window)) {
    found->detach(space);
  }
}

}  // namespace roomlattice::platform::simulated

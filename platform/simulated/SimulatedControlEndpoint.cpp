#include "platform/simulated/SimulatedControlEndpoint.h"

namespace roomlattice::platform::simulated {

Registration SimulatedControlEndpoint::serve(Commands& commands) {
  commands_ = &commands;
  return Registration([this] { commands_ = nullptr; });
}

}  // namespace roomlattice::platform::simulated

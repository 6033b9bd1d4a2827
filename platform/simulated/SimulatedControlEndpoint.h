#pragma once

#include "platform/ControlEndpoint.h"

namespace roomlattice::platform::simulated {

/// What another program reaches: the commands that are served now.
class SimulatedControlEndpoint final : public ControlEndpoint {
 public:
  Registration serve(Commands& commands) override;

  /// Null while nothing is served.
  Commands* commands() const { return commands_; }

 private:
  Commands* commands_ = nullptr;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/ControlEndpoint.h"

namespace roomlattice {

/// For backends whose system has no door for other programs: nobody ever calls.
class NoControlEndpoint final : public platform::ControlEndpoint {
 public:
  platform::Registration serve(platform::Commands&) override { return {}; }
};

}  // namespace roomlattice

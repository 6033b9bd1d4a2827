#pragma once

#include "platform/linux/ctl/CtlArguments.h"

namespace roomlattice::platform::linux {

/// How roomlatticectl ends.
enum class CtlStatus {
  Done = 0,
  Refused = 1,
  Usage = 2,
  NotRunning = 3,
};

/// Carries the command out: what was asked for goes to standard output, the reason of a failure to standard error.
CtlStatus runCtl(const CtlArguments& arguments);

}  // namespace roomlattice::platform::linux

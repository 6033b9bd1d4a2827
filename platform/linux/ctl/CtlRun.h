#pragma once

#include "platform/linux/ctl/CtlArguments.h"

#include <string>

namespace roomlattice::platform::linux {

/// How roomlatticectl ends.
enum class CtlStatus {
  Done = 0,
  Refused = 1,  // also where standard output does not take what was asked for
  Usage = 2,
  NotRunning = 3,
};

/// Carries the command out: what was asked for goes to standard output, the reason of a failure to standard error.
CtlStatus runCtl(const CtlArguments& arguments);

/// Writes a text to standard output, at once. Where that fails it complains on standard error, and is not done.
CtlStatus printCtl(const std::string& text);

}  // namespace roomlattice::platform::linux

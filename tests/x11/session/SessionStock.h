#pragma once

#include "tests/x11/session/SessionBase.h"

#include <memory>

namespace roomlattice::tests {

/// A base for these options: one that a test of this process has left as it was, or a new one.
std::unique_ptr<SessionBase> takeSessionBase(const SessionOptions& options);

/// Keeps it for a later test if it is as it was when it was new.
void leaveSessionBase(std::unique_ptr<SessionBase> base);

}  // namespace roomlattice::tests

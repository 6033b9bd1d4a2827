#pragma once

#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {

/// For the suites that run under every window manager at hand.
inline auto everyWindowManager() {
  return ::testing::Values(WindowManagerKind::Openbox, WindowManagerKind::Xfwm4, WindowManagerKind::KWin);
}

}  // namespace roomlattice::tests

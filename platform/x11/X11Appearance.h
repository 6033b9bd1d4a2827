#pragma once

#include "platform/Color.h"
#include "platform/NotificationCenter.h"
#include "platform/UserInterface.h"
#include "platform/x11/X11Connection.h"

#include <optional>

namespace roomlattice::platform::x11 {

/// Light or dark, and the accent colour, as the desktop has them set. Main thread only.
class X11Appearance {
 public:
  /// A change between light and dark is posted to `distributedCenter` as interfaceThemeChanged.
  X11Appearance(X11Connection& connection, NotificationCenter& distributedCenter);

  std::optional<Appearance> current() const;
  Color accentColor() const;
};

}  // namespace roomlattice::platform::x11

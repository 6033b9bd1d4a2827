#pragma once

#include "platform/Color.h"
#include "platform/NotificationCenter.h"
#include "platform/UserInterface.h"
#include "platform/linux/appearance/PortalAppearance.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/x11/appearance/ApplicationPalette.h"
#include "platform/x11/appearance/XSettingsWatch.h"
#include "platform/x11/connection/X11Connection.h"

#include <optional>

namespace roomlattice::platform::x11 {

/// Light or dark, and the accent colour, as the desktop has them set: by the portal's word, else by the name of the
/// theme that the XSETTINGS manager publishes, else by the colours of the Qt theme. The application's own colours
/// follow.
class X11Appearance {
 public:
  /// A change between light and dark is posted to `distributedCenter` as interfaceThemeChanged.
  X11Appearance(X11Connection& connection, linux::MessageBus& sessionBus, NotificationCenter& distributedCenter);

  std::optional<Appearance> current() const { return current_; }
  Color accentColor() const;

 private:
  Appearance wanted() const;
  void update();

  NotificationCenter& distributedCenter_;
  linux::PortalAppearance portal_;
  XSettingsWatch xSettings_;
  ApplicationPalette palette_;
  Appearance current_;
};

}  // namespace roomlattice::platform::x11

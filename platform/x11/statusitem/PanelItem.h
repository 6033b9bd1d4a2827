#pragma once

#include "platform/StatusItem.h"
#include "platform/linux/tray/ExportedMenu.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/statusitem/ItemHandlers.h"

#include <vector>

namespace roomlattice::platform::x11 {

/// The status item in the panels of the desktop: a square tile in all sizes that panels ask for, or where the host
/// keeps it a picture with the whole title.
class PanelItem {
 public:
  /// For the host that runs now. `menu` gives the items of the menu that a panel shows in the program's stead. The
  /// connection, the bus and the watch must outlive it.
  PanelItem(X11Connection& connection, linux::MessageBus& bus, linux::TrayWatch& watch, ItemHandlers handlers,
            linux::ExportedMenu::Items menu);

  void setContent(const StatusButtonContent& content);

  /// Whether a host with these traits is shown what it is to be shown; otherwise it needs another item.
  bool suits(const linux::TrayTraits& host) const { return host == traits_; }

  /// To be called when the menu's items are others.
  void menuChanged();

 private:
  linux::TrayHandlers trayHandlers();
  const std::vector<linux::TrayPicture>& pictures();

  X11Connection& connection_;
  const linux::TrayTraits traits_;
  ItemHandlers handlers_;
  StatusButtonContent content_;
  // Of the content, once somebody has asked.
  std::vector<linux::TrayPicture> pictures_;
  linux::ExportedMenu menu_;
  linux::StatusNotifierItem item_;
};

}  // namespace roomlattice::platform::x11

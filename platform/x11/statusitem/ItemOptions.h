#pragma once

#include "platform/linux/system/Autostart.h"
#include "platform/linux/tray/ExportedMenu.h"
#include "platform/x11/desktops/X11DesktopNames.h"
#include "platform/x11/statusitem/ItemPlacement.h"
#include "platform/x11/statusitem/ItemSettings.h"

#include <QMenu>
#include <QPoint>
#include <functional>
#include <memory>
#include <vector>

namespace roomlattice::platform::x11 {

/// What the user can choose about the status item itself, and about how the program goes together with the session, as
/// the items of a menu, and that menu.
class ItemOptions {
 public:
  /// `settingsChanged` is called after a choice other than of the place. The others must outlive this object.
  ItemOptions(ItemPlacement& placement, ItemSettings& settings, X11DesktopNames& desktopNames,
              std::function<void()> settingsChanged);

  /// The items as things are now. What they do ends with this object.
  std::vector<linux::ExportedItem> items();

  /// Opens the menu at a point in Qt's coordinates. `closed` is called on a later turn when it has closed, unless it
  /// has been opened again by then.
  void open(QPoint pointer, const std::function<void()>& closed);

  /// Closes the menu, if it is open.
  void close();

 private:
  linux::ExportedItem placeItem(const char* title, ItemPlace place);
  linux::ExportedItem keepEdgeFreeItem();
  linux::ExportedItem shareNamesItem();
  linux::ExportedItem autostartItem(const linux::Autostart& autostart);

  ItemPlacement& placement_;
  ItemSettings& settings_;
  X11DesktopNames& desktopNames_;
  std::function<void()> settingsChanged_;
  std::unique_ptr<QMenu> popup_;
};

}  // namespace roomlattice::platform::x11

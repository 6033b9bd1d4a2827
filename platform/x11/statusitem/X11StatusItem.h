#pragma once

#include "platform/StatusItem.h"
#include "platform/x11/statusitem/FloatingItem.h"
#include "platform/x11/statusitem/ItemOptions.h"
#include "platform/x11/statusitem/ItemPlacement.h"
#include "platform/x11/statusitem/MenuSession.h"
#include "platform/x11/statusitem/PanelItem.h"
#include "platform/x11/windows/KeyboardClaim.h"

#include <QObject>
#include <QPoint>
#include <QRect>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace roomlattice::platform::x11 {

/// The status item, in the panels of the desktop or as a window of its own, or both.
class X11StatusItem final : public StatusItem, public StatusButton {
 public:
  X11StatusItem(const StatusItemEnvironment& environment, const StatusItemLength& length);

  StatusButton* button() override { return this; }
  void setLength(const StatusItemLength& length) override;
  void setMenu(Menu* menu) override;
  /// At the floating item, or at the pointer where there is none.
  void openMenu() override;
  void setContent(const StatusButtonContent& content) override;

 private:
  ItemHandlers handlers();
  void place();
  void settingsChanged();
  /// What a panel shows where the item itself cannot: the whole menu, or only the item's options.
  std::vector<linux::ExportedItem> exportedItems();
  void choose(std::size_t index);
  std::function<void()> later(std::function<void()> action);
  void openMenuAt(const QRect& anchor);
  void closeMenu();
  void openOptions(QPoint pointer);

  StatusItemEnvironment environment_;
  StatusButtonContent content_;
  StatusItemLength length_;
  Menu* menu_ = nullptr;
  QObject context_;  // owns what the menu's commands have under way
  // Both exist while the menu is open.
  std::optional<KeyboardClaim> keyboard_;
  std::unique_ptr<MenuSession> session_;
  // While the options are open.
  std::optional<KeyboardClaim> optionsKeyboard_;
  ItemSettings settings_{environment_.defaults};
  linux::TrayWatch tray_{environment_.sessionBus};
  std::optional<FloatingItem> floating_;
  std::optional<PanelItem> panel_;
  ItemPlacement placement_{settings_, tray_, [this] { place(); }};
  ItemOptions options_{placement_, settings_, environment_.desktopNames, [this] { settingsChanged(); }};
  Registration changesElsewhere_;
};

}  // namespace roomlattice::platform::x11

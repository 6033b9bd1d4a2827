#pragma once

#include "platform/StatusItem.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/appearance/X11Appearance.h"
#include "platform/x11/connection/CompositorWatch.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/statusitem/MenuSession.h"

#include <QWidget>
#include <memory>

namespace roomlattice::platform::x11 {

/// The status item as a dock window of its own at the top right of the primary screen: system trays squeeze a wide item
/// into a square. It is on all desktops, above other windows, and never takes the keyboard.
///
/// With ROOMLATTICE_RESERVE_SCREEN_EDGE=1 in the environment it reserves its height along the top edge of the screen,
/// so that maximised windows start below it; otherwise it lies over them.
class X11StatusItem final : public QWidget, public StatusItem, public StatusButton {
 public:
  X11StatusItem(X11Connection& connection, WindowManagerWatch& windowManager, X11Appearance& appearance,
                CompositorWatch& compositor, const StatusItemLength& length);

  StatusButton* button() override { return this; }
  void setLength(const StatusItemLength& length) override;
  void setMenu(Menu* menu) override;
  void openMenu() override;
  void setContent(const StatusButtonContent& content) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void followScreens();
  void layOut();
  void appear();
  void reserveScreenEdge();

  /// Opens the menu unless it is open; `origin` is the window's, in Qt's coordinates.
  void openMenuAt(QPointF origin);

  /// Where the item is in the window, which is wider under some window managers.
  QRectF itemRect() const;

  X11Connection& connection_;
  WindowManagerWatch& windowManager_;
  X11Appearance& appearance_;
  CompositorWatch& compositor_;
  StatusButtonContent content_;
  StatusItemLength length_;
  Menu* menu_ = nullptr;
  // Exists while the menu is open.
  std::unique_ptr<MenuSession> session_;
  double itemWidth_ = 0.0;
  NativeWindow native_;
  linux::OneShotTimer layOutSoon_{[this] { layOut(); }};
  Registration compositorChanges_;
};

}  // namespace roomlattice::platform::x11

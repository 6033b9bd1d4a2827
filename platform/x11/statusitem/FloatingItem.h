#pragma once

#include "platform/StatusItem.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/FullScreenWatch.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/WindowPicture.h"
#include "platform/x11/statusitem/FloatingArea.h"
#include "platform/x11/statusitem/ItemHandlers.h"
#include "platform/x11/statusitem/ItemPictures.h"
#include "platform/x11/statusitem/ItemSettings.h"
#include "platform/x11/statusitem/StatusItemEnvironment.h"

#include <QPushButton>
#include <optional>

namespace roomlattice::platform::x11 {

/// The status item as a window of its own at an edge of the primary screen, inside what panels leave of it: in the
/// middle of the top edge, where no window has its buttons, unless the user has dragged it elsewhere. It is on all
/// desktops, above other windows but for those that fill the screen, and never takes the keyboard. Where the window
/// manager makes strips of docks it stands at the right end of one. It grows with its title, and shrinks where the
/// title would leave much of it empty.
///
/// It is the toolkit's button for those who cannot see it, which brings its role, its name and the action to press it.
class FloatingItem final : public QPushButton {
 public:
  /// The others must outlive it. It appears on a later turn.
  FloatingItem(StatusItemEnvironment& environment, ItemSettings& settings, ItemHandlers handlers);

  /// Shows it at once where it is no wider than what was there; otherwise when the window has its new width, or after a
  /// moment without. A hidden item has it when it appears. What has been shown before in the same size costs no drawing
  /// and no question to anybody.
  void setContent(const StatusButtonContent& content, const StatusItemLength& length);

  /// To be called when the settings have changed.
  void settingsChanged();

  /// Where the item is, in Qt's coordinates.
  QRect anchor() const;

 protected:
  QPaintEngine* paintEngine() const override { return nullptr; }
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A press of the button that has not ended yet, in coordinates of the screen and of the window.
  struct Press {
    QPointF onScreen;
    QPointF inWindow;
    bool isDrag = false;
  };

  /// Asks where there is room, then places the item there.
  void layOut();
  /// Places the item where there is room by what is known. Whether it gets another width by that.
  bool place();
  int wantedWidth();
  void draw();
  QImage strip(const QImage& item, const QColor& backdrop) const;
  void followFullScreen();
  bool isWanted() const;
  void appear();
  void applyShape();
  void reserveEdge();
  bool isStrip() const;

  /// Where the item is in the window, which is wider than it in a strip.
  QRect itemRect() const;

  StatusItemEnvironment& environment_;
  ItemSettings& settings_;
  ItemHandlers handlers_;
  // Only where the window manager leaves it to the item.
  std::optional<FullScreenWatch> fullScreen_;
  StatusButtonContent content_;
  StatusItemLength length_;
  EdgePlace place_;
  EdgeUse edgeUse_;
  FloatingArea floatingArea_;
  // Where there is room; in a strip the whole screen.
  QRect area_;
  // What the toolkit and the server were last asked for.
  QRect frame_;
  QSize shapedSize_;
  double shapedRadius_ = 0.0;
  int itemWidth_ = 0;
  ItemPictures pictures_;
  std::optional<Press> press_;
  int wheelAngle_ = 0;
  std::optional<Strut> strut_;
  NativeWindow native_;
  WindowPicture onScreen_{native_};
  linux::OneShotTimer layOutSoon_{[this] { layOut(); }};
  linux::OneShotTimer drawLater_{[this] { draw(); }};
  Registration compositorChanges_;
  Registration windowManagerChanges_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include <QRect>
#include <QWidget>

namespace roomlattice::platform::x11 {

/// The widget of an overlay window: translucent, without a frame, never focused. Clicks pass through it. It
/// cannot be closed from outside: a window manager's request to close it is not obeyed. Some window
/// managers choose a place of their own for a window that appears; the widget then moves back to its place.
class OverlaySurface final : public QWidget {
 public:
  OverlaySurface();

  /// Gives the widget its place, in Qt's coordinates; false when it had that place already.
  bool place(const QRect& frame);

  /// Shows the widget. A menu that is open stays open.
  void appear();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void verify();

  QRect wanted_;
  // How many more times the widget moves back.
  int corrections_ = 0;
  bool verifying_ = false;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/linux/system/OneShotTimer.h"

#include <QRect>
#include <QWidget>
#include <functional>

namespace roomlattice::platform::x11 {

/// The widget of an overlay window: without a frame, never focused. Clicks pass through it. It cannot be closed from
/// outside: a window manager's request to close it is not obeyed. Some window managers choose a place of their own for
/// a window that appears; the widget then moves back to its place.
///
/// The toolkit does not paint it, and keeps no picture of it.
class OverlaySurface final : public QWidget {
 public:
  /// Whether the pixels of the window have an alpha, or are as all others on the screen.
  enum class Depth { WithAlpha, OfScreen };

  /// `draw` is called when the window is to be drawn.
  OverlaySurface(Depth depth, std::function<void()> draw);

  /// Gives the widget its place, in Qt's coordinates; false when it had that place already.
  bool place(const QRect& frame);

  /// Has the window drawn, on a turn of its own.
  void drawSoon() { drawSoon_.start(); }

  /// Shows the widget. A menu that is open stays open.
  void appear();

 protected:
  QPaintEngine* paintEngine() const override { return nullptr; }
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool isInPlace() const;
  void verify();

  QRect wanted_;
  // How many more times the widget moves back to the place it was given last.
  int corrections_ = 0;
  bool verifying_ = false;
  // Whoever switches desktops looks for the name of the new one first, in the status item. The news of the switch
  // arrives together with the exposure of a label, and has been dealt with when the timer's turn comes.
  linux::OneShotTimer drawSoon_;
};

}  // namespace roomlattice::platform::x11

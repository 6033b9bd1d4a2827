#pragma once

#include <QRect>
#include <QWidget>

namespace roomlattice::platform::x11 {

/// The widget of an overlay window: without a frame, translucent, never focused, transparent for clicks. It insists on
/// its place, which some window managers take as a suggestion when a window appears.
class OverlaySurface final : public QWidget {
 public:
  OverlaySurface();

  /// Where it is to be, in Qt's coordinates; false when it was to be there already.
  bool place(const QRect& frame);

  /// Shows it beside a menu that may be open.
  void appear();

  /// To be called before it appears, when window managers have their ideas.
  void allowCorrections() { corrections_ = maximumCorrections; }

 protected:
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  static constexpr int maximumCorrections = 3;

  void verify();

  QRect wanted_;
  int corrections_ = 0;
  bool verifying_ = false;
};

}  // namespace roomlattice::platform::x11

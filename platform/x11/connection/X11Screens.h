#pragma once

#include "platform/Geometry.h"
#include "platform/NotificationCenter.h"
#include "platform/UserInterface.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/X11Connection.h"

#include <QObject>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <optional>
#include <vector>

class QScreen;

namespace roomlattice::platform::x11 {

/// A screen's part of the root window, in pixels. Qt scales a screen around its top left corner, which keeps its place.
QRectF pixelsOf(const QScreen& screen);

/// The screen that shows a pixel of the root window; null where none does.
QScreen* screenAtPixel(QPointF pixel);

/// Where a pixel of the root window is in Qt's coordinates, by the scale of `screen`.
QPointF fromPixel(QPointF pixel, const QScreen& screen);

/// The screens of the Qt application and the ways between the three kinds of coordinates: the program's (points, origin
/// at the bottom left of the primary screen, y up), Qt's (points, origin at the top left, y down) and the X server's
/// (pixels, origin at the top left of the root window, y down).
class X11Screens {
 public:
  /// Changes, and that another screen has become the main one, are posted to `defaultCenter` as
  /// didChangeScreenParameters, once for all that come together.
  X11Screens(X11Connection& connection, NotificationCenter& defaultCenter);

  /// The primary screen first. While no output is on, one of those there were before; where there have been none, the
  /// root window, which has a size then, too.
  std::vector<Screen> screens() const;

  /// The screen with the active window; without one, the screen with the pointer; else the primary screen.
  std::optional<Screen> mainScreen() const;

  Point fromQt(QPointF point) const;
  Rect fromQt(const QRectF& rect) const;
  QPointF toQt(Point point) const;
  QRectF toQt(const Rect& rect) const;

  /// The place in screen coordinates of a pixel of the root window.
  Point fromPixel(QPointF pixel) const;

 private:
  void follow(QScreen* screen);
  void followActiveWindow();
  void changed();
  void postIfChanged();
  QRect primaryGeometry() const;
  Rect frameOf(const QScreen& screen) const;
  QScreen* screenOfActiveWindow() const;
  QScreen* screenOfPointer() const;

  X11Connection& connection_;
  NotificationCenter& defaultCenter_;
  // As Qt has them: the program's coordinates stay the same when all screens move together.
  std::vector<QRect> posted_;
  std::optional<Screen> postedMain_;
  linux::OneShotTimer coalescing_{[this] { postIfChanged(); }};
  Registration propertyEvents_;
  QObject context_;  // ends the connections to Qt's signals
};

}  // namespace roomlattice::platform::x11

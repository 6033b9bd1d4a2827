#pragma once

#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/WorkArea.h"
#include "platform/x11/statusitem/ItemSettings.h"

#include <QObject>
#include <QRect>
#include <functional>
#include <optional>

class QScreen;

namespace roomlattice::platform::x11 {

/// The primary screen and what panels leave of it, in Qt's coordinates.
class FloatingArea {
 public:
  /// `changed` is called on a later turn, once for all changes that come together.
  FloatingArea(X11Connection& connection, std::function<void()> changed);

  /// Nothing while there is no screen.
  std::optional<QRect> screen() const;

  /// Where `window` may float. Where it keeps its edge free, what it reserves itself is not to push it away; the server
  /// is waited for then.
  std::optional<QRect> freeFor(xcb_window_t window, EdgeUse use) const;

  /// What something at the top or the bottom of the screen has to reserve for no window to lie below it. Nothing at the
  /// other edges, and where another screen lies beyond the edge: reservations count from the edge of the root window,
  /// so it would be all of that screen as well. Waits for the server.
  std::optional<Strut> strutFor(Edge edge, const QRect& frame) const;

  /// Whether a part of the root window, in its pixels, meets the screen.
  bool meets(const QRect& pixels) const;

 private:
  void follow(QScreen* screen);

  WorkArea workArea_;
  linux::OneShotTimer changedSoon_;
  Registration workAreaChanges_;
  QObject context_;  // ends the connections to Qt's signals
};

}  // namespace roomlattice::platform::x11

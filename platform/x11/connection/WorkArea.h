#pragma once

#include "platform/x11/connection/X11Connection.h"
#include "support/Listeners.h"

#include <QRect>
#include <QSize>
#include <functional>
#include <optional>

namespace roomlattice::platform::x11 {

/// What panels leave of the screens, in pixels of the root window.
class WorkArea {
 public:
  explicit WorkArea(X11Connection& connection);

  /// The part of `screen` that is free on all desktops, by the window manager's word (_NET_WORKAREA); all of it where
  /// the window manager says nothing that makes sense. Known already: nobody is asked.
  QRect freePartOf(const QRect& screen) const;

  /// What the reservations of all windows but one leave of `screen` (EWMH, _NET_WM_STRUT_PARTIAL and _NET_WM_STRUT of
  /// what is in _NET_CLIENT_LIST). Waits for the server.
  QRect leftByOthersThan(xcb_window_t window, const QRect& screen) const;

  /// The size of the root window. Waits for the server.
  QSize rootSize() const;

  /// Calls `handler` after each change.
  Registration observe(std::function<void()> handler);

 private:
  void read();

  X11Connection& connection_;
  // Free on every desktop.
  std::optional<QRect> area_;
  bool isOutOfDate_ = false;
  Listeners<> listeners_;
  Registration propertyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/DockSwipe.h"

#include <QPoint>
#include <QRect>
#include <functional>

namespace roomlattice::platform::x11 {

/// What the user asks of the status item where it is shown; none is empty. Places are in Qt's coordinates.
struct ItemHandlers {
  /// The menu, beside what has been clicked.
  std::function<void(const QRect& anchor)> openMenu;
  /// The menu of the item itself.
  std::function<void(QPoint pointer)> openOptions;
  /// To the neighbouring desktop.
  std::function<void(Direction direction)> step;
};

}  // namespace roomlattice::platform::x11

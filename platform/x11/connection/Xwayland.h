#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QPoint>

namespace roomlattice::platform::x11 {

/// Whether the server's windows are shown by a Wayland compositor. Such a server hears of the pointer and of keys only
/// while the compositor gives them to a window of an X client.
bool isXwayland(X11Connection& connection);

/// Where a click was, in Qt's coordinates: at the pointer, unless an Xwayland does not know where that is. Then it is
/// `told`, by a panel.
QPoint placeOfClick(X11Connection& connection, QPoint told);

}  // namespace roomlattice::platform::x11

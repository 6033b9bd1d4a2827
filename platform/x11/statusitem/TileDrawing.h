#pragma once

#include "platform/StatusItem.h"

#include <QImage>

namespace roomlattice::platform::x11 {

/// The status item as a square of `side` pixels, for panels: a tile in the item's colour with the number or the first
/// character of its title, or its image. Panels have colours of their own, and are dark or light whatever the
/// desktop's appearance is: what has no colour of its own is readable on both.
QImage drawTile(const StatusButtonContent& content, int side);

/// The status item as wide as its whole title needs, `height` pixels high.
QImage drawWideTile(const StatusButtonContent& content, int height);

}  // namespace roomlattice::platform::x11

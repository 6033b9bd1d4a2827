#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QColor>
#include <QImage>
#include <QRect>

namespace roomlattice::tests {

/// What the screen shows now, in pixels; outside of `area` nothing is looked at.
QImage screenImage(platform::x11::X11Connection& connection, const QRect& area);

QColor screenColor(platform::x11::X11Connection& connection, const QPoint& pixel);

/// Whether the components of both differ by no more than `tolerance` of 255.
bool similar(const QColor& a, const QColor& b, int tolerance = 8);

/// How many pixels of the image are similar to `color`.
int countPixels(const QImage& image, const QColor& color, int tolerance = 8);

}  // namespace roomlattice::tests

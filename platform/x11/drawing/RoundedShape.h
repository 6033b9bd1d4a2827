#pragma once

#include <QSize>
#include <vector>
#include <xcb/xcb.h>

namespace roomlattice::platform::x11 {

/// The pixels of a rectangle with rounded corners, as a shape of non-overlapping rectangles from top to bottom.
std::vector<xcb_rectangle_t> roundedShape(const QSize& size, double cornerRadius);

}  // namespace roomlattice::platform::x11

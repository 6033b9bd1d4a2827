#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace roomlattice::platform::x11 {

enum class Edge { Top, Bottom, Left, Right };

/// A place at an edge of an area, whatever size the area has.
struct EdgePlace {
  Edge edge = Edge::Top;
  /// Where the middle of what stands there is: 0 is the left or the upper end of the edge, 1 the other one.
  double along = 0.5;

  bool operator==(const EdgePlace&) const = default;
};

/// The frame of something of that size at the place, all of it inside the area where there is room.
QRect frameAt(const EdgePlace& place, const QRect& area, const QSize& size);

/// The place at an edge that is nearest to something of that size with its middle at `middle`.
EdgePlace nearestPlace(const QPoint& middle, const QRect& area, const QSize& size);

}  // namespace roomlattice::platform::x11

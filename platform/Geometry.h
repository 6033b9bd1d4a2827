#pragma once

namespace roomlattice::platform {

/// All lengths are in points. Screen coordinates have their origin at the bottom left of the primary screen and y
/// grows upwards; a view's own coordinates have their origin at the view's bottom left.
struct Point {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0.0;
  double height = 0.0;

  bool operator==(const Size&) const = default;
};

struct Rect {
  Point origin;
  Size size;

  double minX() const { return origin.x; }
  double minY() const { return origin.y; }
  double midX() const { return origin.x + size.width * 0.5; }
  double midY() const { return origin.y + size.height * 0.5; }
  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }

  /// Half open: the left and bottom edges belong to the rectangle, the right and top edges do not.
  bool contains(Point point) const {
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
  }

  bool operator==(const Rect&) const = default;
};

}  // namespace roomlattice::platform

#pragma once

#include "platform/Color.h"
#include "platform/Geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform {

enum class ShapeKind { RoundedRect, Ellipse };

/// One filled or stroked figure. Coordinates are the image's own: points, origin at the bottom left.
struct Shape {
  ShapeKind kind = ShapeKind::RoundedRect;
  Rect bounds;
  double cornerRadius = 0.0;
  Color color;
  /// A stroke of this width along the outline; a fill where there is none.
  std::optional<double> lineWidth;

  bool operator==(const Shape&) const = default;
};

/// A drawing as data; a backend only rasterises it, at the resolution of the screen.
struct Image {
  Size size;
  std::vector<Shape> shapes;
  /// A template lends only its coverage: the platform draws it in the text colour of wherever it stands.
  bool isTemplate = false;

  bool operator==(const Image&) const = default;
};

/// A picture the platform has under a name; a backend without such pictures draws its own.
struct SymbolImage {
  std::string name;
  std::string accessibilityDescription;

  bool operator==(const SymbolImage&) const = default;
};

}  // namespace roomlattice::platform

#include "platform/x11/drawing/RoundedShape.h"

#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

xcb_rectangle_t rectangle(int x, int y, int width, int height) {
  return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), static_cast<std::uint16_t>(width),
          static_cast<std::uint16_t>(height)};
}

/// How far the outline is from the side in a row that is `row` below the edge, measured in the middle of the row.
int inset(double radius, int row) {
  const double rise = radius - (row + 0.5);
  return static_cast<int>(std::lround(radius - std::sqrt(std::max(radius * radius - rise * rise, 0.0))));
}

}  // namespace

std::vector<xcb_rectangle_t> roundedShape(const QSize& size, double cornerRadius) {
  const double radius = std::clamp(cornerRadius, 0.0, std::min(size.width(), size.height()) / 2.0);
  const int rows = static_cast<int>(std::floor(radius));
  std::vector<xcb_rectangle_t> shape;
  const auto addRow = [&](int y, int row) {
    const int side = inset(radius, row);
    if (size.width() > 2 * side) {
      shape.push_back(rectangle(side, y, size.width() - 2 * side, 1));
    }
  };
  for (int row = 0; row < rows; ++row) {
    addRow(row, row);
  }
  if (size.height() > 2 * rows) {
    shape.push_back(rectangle(0, rows, size.width(), size.height() - 2 * rows));
  }
  for (int row = rows - 1; row >= 0; --row) {
    addRow(size.height() - 1 - row, row);
  }
  return shape;
}

}  // namespace roomlattice::platform::x11

#include "platform/x11/statusitem/EdgePlace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// Where something of that length begins with its middle at a part of the way from `start` on.
int begin(int start, int room, int length, double along) {
  const int wanted = start + static_cast<int>(std::lround(room * along - length / 2.0));
  return std::clamp(wanted, start, std::max(start, start + room - length));
}

double part(int middle, int start, int room) {
  return room <= 0 ? 0.5 : std::clamp(static_cast<double>(middle - start) / room, 0.0, 1.0);
}

}  // namespace

QRect frameAt(const EdgePlace& place, const QRect& area, const QSize& size) {
  const int x = begin(area.left(), area.width(), size.width(), place.along);
  const int y = begin(area.top(), area.height(), size.height(), place.along);
  switch (place.edge) {
    case Edge::Top:
      return {{x, area.top()}, size};
    case Edge::Bottom:
      return {{x, std::max(area.bottom() + 1 - size.height(), area.top())}, size};
    case Edge::Left:
      return {{area.left(), y}, size};
    case Edge::Right:
      return {{std::max(area.right() + 1 - size.width(), area.left()), y}, size};
  }
  return {area.topLeft(), size};
}

EdgePlace nearestPlace(const QPoint& middle, const QRect& area, const QSize& size) {
  const int x = std::clamp(middle.x(), area.left(), std::max(area.left(), area.right()));
  const int y = std::clamp(middle.y(), area.top(), std::max(area.top(), area.bottom()));
  // By how far it would have to be moved.
  const std::array<std::pair<int, Edge>, 4> ways = {
      std::pair{std::abs(y - size.height() / 2 - area.top()), Edge::Top},
      std::pair{std::abs(area.bottom() - y - size.height() / 2), Edge::Bottom},
      std::pair{std::abs(x - size.width() / 2 - area.left()), Edge::Left},
      std::pair{std::abs(area.right() - x - size.width() / 2), Edge::Right}};
  const Edge edge = std::ranges::min_element(ways, {}, &std::pair<int, Edge>::first)->second;
  const bool lies = edge == Edge::Top || edge == Edge::Bottom;
  return {edge, lies ? part(x, area.left(), area.width()) : part(y, area.top(), area.height())};
}

}  // namespace roomlattice::platform::x11

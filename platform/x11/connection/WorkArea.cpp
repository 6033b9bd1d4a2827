#include "platform/x11/connection/WorkArea.h"

#include "platform/x11/connection/Properties.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

using Numbers = std::vector<std::uint32_t>;

/// Anybody may write any number there. X knows no place farther away than this.
int pixels(std::uint32_t number) {
  constexpr std::uint32_t farthest = 65535;
  return static_cast<int>(std::min(number, farthest));
}

/// EWMH: four numbers for each desktop.
std::optional<QRect> commonArea(const Numbers& numbers) {
  std::optional<QRect> common;
  for (std::size_t index = 0; index + 3 < numbers.size(); index += 4) {
    if (index > 0 && std::equal(&numbers[index], &numbers[index] + 4, &numbers[index - 4])) {
      // As on most desktops.
      continue;
    }
    const auto number = [&](std::size_t offset) { return pixels(numbers[index + offset]); };
    const QRect area(number(0), number(1), number(2), number(3));
    common = common ? *common & area : area;
  }
  return common;
}

/// `screen` without what a strut takes of it; `numbers` are those of a partial one, or the first four of them.
QRect without(const Numbers& numbers, const QRect& screen, const QSize& root) {
  // EWMH: the depths at the left, the right, the top and the bottom of the root window, then from where to where each.
  const auto number = [&](std::size_t index) { return pixels(numbers[index]); };
  const auto meets = [&](std::size_t side, int first, int last) {
    const std::size_t range = 4 + 2 * side;
    return numbers.size() < range + 2 || (number(range) <= last && number(range + 1) >= first);
  };
  QRect rest = screen;
  if (numbers.size() < 4) {
    return rest;
  }
  if (meets(0, screen.top(), screen.bottom())) {
    rest.setLeft(std::max(rest.left(), number(0)));
  }
  if (meets(1, screen.top(), screen.bottom())) {
    rest.setRight(std::min(rest.right(), root.width() - number(1) - 1));
  }
  if (meets(2, screen.left(), screen.right())) {
    rest.setTop(std::max(rest.top(), number(2)));
  }
  if (meets(3, screen.left(), screen.right())) {
    rest.setBottom(std::min(rest.bottom(), root.height() - number(3) - 1));
  }
  // A strut that leaves nothing concerns a neighbouring screen.
  return rest.isEmpty() ? screen : rest;
}

}  // namespace

WorkArea::WorkArea(X11Connection& connection) : connection_(connection) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    const bool isArea = notify.window == connection_.root() && notify.atom == connection_.ewmh()->_NET_WORKAREA;
    isOutOfDate_ = isOutOfDate_ || isArea;
  });
  batches_ = connection.observeBatches([this] {
    if (std::exchange(isOutOfDate_, false)) {
      read();
      listeners_.notify();
    }
  });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
  read();
}

QRect WorkArea::freePartOf(const QRect& screen) const {
  const QRect free = area_ ? screen & *area_ : screen;
  return free.isEmpty() ? screen : free;
}

QRect WorkArea::leftByOthersThan(xcb_window_t window, const QRect& screen) const {
  xcb_ewmh_connection_t& atoms = *connection_.ewmh();
  const auto windows = readNumbers(connection_, connection_.root(), atoms._NET_CLIENT_LIST, XCB_ATOM_WINDOW);
  const QSize root = rootSize();
  QRect rest = screen;
  for (const xcb_window_t other : windows.value_or(Numbers())) {
    if (other == window) {
      continue;
    }
    auto strut = readNumbers(connection_, other, atoms._NET_WM_STRUT_PARTIAL, XCB_ATOM_CARDINAL);
    if (!strut) {
      strut = readNumbers(connection_, other, atoms._NET_WM_STRUT, XCB_ATOM_CARDINAL);
    }
    rest &= strut ? without(*strut, screen, root) : screen;
  }
  return rest.isEmpty() ? screen : rest;
}

QSize WorkArea::rootSize() const {
  const auto cookie = xcb_get_geometry(connection_.raw(), connection_.root());
  const auto geometry = replyTo(connection_.raw(), cookie, xcb_get_geometry_reply);
  return geometry == nullptr ? QSize() : QSize(geometry->width, geometry->height);
}

Registration WorkArea::observe(std::function<void()> handler) {
  return listeners_.add(std::move(handler));
}

void WorkArea::read() {
  const auto numbers =
      readNumbers(connection_, connection_.root(), connection_.ewmh()->_NET_WORKAREA, XCB_ATOM_CARDINAL);
  area_ = numbers ? commonArea(*numbers) : std::nullopt;
}

}  // namespace roomlattice::platform::x11

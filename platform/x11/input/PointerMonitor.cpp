#include "platform/x11/input/PointerMonitor.h"

#include "platform/x11/connection/Xwayland.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

bool takesClicks(const QWidget& window) {
  return window.isVisible() && !window.windowFlags().testFlag(Qt::WindowTransparentForInput);
}

/// Whether a click at `point` would come to this program.
bool isOverOwnWindow(QPoint point) {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool near = std::ranges::any_of(
      windows, [&](const QWidget* window) { return takesClicks(*window) && window->frameGeometry().contains(point); });
  // Only the server knows what lies on top there, and it is asked only when the answer may matter.
  const QWidget* top = near ? QApplication::topLevelAt(point) : nullptr;
  return top != nullptr && takesClicks(*top);
}

}  // namespace

PointerMonitor::PointerMonitor(X11Connection& connection, XInput& input, const X11Screens& screens)
    : connection_(connection), input_(input), screens_(screens) {}

Registration PointerMonitor::observe(std::function<void()> handler) {
  if (!input_.isAvailable()) {
    return {};
  }
  Registration listener = listeners_.add(std::move(handler));
  select();
  return listener;
}

void PointerMonitor::select() {
  if (std::exchange(selected_, true)) {
    return;
  }
  motions_ = input_.observe(
      [this](const xcb_ge_generic_event_t& event) { moved_ = moved_ || event.event_type == XCB_INPUT_RAW_MOTION; });
  if (!corners_ && isXwayland(connection_)) {
    corners_.emplace(screens_, [this](const Point& point) { deliver(point); });
  }
  batches_ = connection_.observeBatches([this] { deliver(); });
  input_.select(XCB_INPUT_DEVICE_ALL_MASTER, {XCB_INPUT_RAW_MOTION});
}

void PointerMonitor::deliver() {
  if (!std::exchange(moved_, false)) {
    return;
  }
  if (listeners_.empty()) {
    input_.select(XCB_INPUT_DEVICE_ALL_MASTER, {});
    selected_ = false;
    return;
  }
  const Point point = query();
  if (!isOverOwnWindow(screens_.toQt(point).toPoint())) {
    deliver(point);
  }
}

void PointerMonitor::deliver(const Point& point) {
  delivered_ = point;
  listeners_.notify();
  delivered_.reset();
}

Point PointerMonitor::location() const {
  return delivered_ ? *delivered_ : query();
}

Point PointerMonitor::query() const {
  const auto reply = connection_.queryPointer();
  return reply == nullptr ? Point() : screens_.fromPixel(QPointF(reply->root_x, reply->root_y));
}

}  // namespace roomlattice::platform::x11

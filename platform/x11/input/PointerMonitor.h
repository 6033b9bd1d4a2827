#pragma once

#include "platform/x11/connection/X11Screens.h"
#include "platform/x11/connection/XInput.h"
#include "platform/x11/input/CornerWindows.h"
#include "support/Listeners.h"

#include <functional>
#include <optional>

namespace roomlattice::platform::x11 {

/// Follows the pointer wherever it is, without polling: the server tells of every motion of the devices (raw motion of
/// XInput 2), also while another application has grabbed the pointer. Nothing is selected while nobody listens. Motions
/// that a program makes by warping the pointer are not seen. On Wayland the server knows of motions over X windows
/// only; there the top left corners of the screens are watched as well.
class PointerMonitor {
 public:
  PointerMonitor(X11Connection& connection, XInput& input, const X11Screens& screens);

  /// Calls `handler` once for all motion that arrived together, unless the pointer is over a window of the program that
  /// takes clicks. Empty where the server has no such events.
  Registration observe(std::function<void()> handler);

  /// Where the pointer is, in screen coordinates.
  Point location() const;

 private:
  void select();
  void deliver();
  void deliver(const Point& point);
  Point query() const;

  X11Connection& connection_;
  XInput& input_;
  const X11Screens& screens_;
  Listeners<> listeners_;
  bool selected_ = false;
  bool moved_ = false;
  // Known while a motion is being delivered, to all listeners from one question.
  std::optional<Point> delivered_;
  std::optional<CornerWindows> corners_;
  Registration motions_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

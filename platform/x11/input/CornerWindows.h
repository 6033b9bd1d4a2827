#pragma once

#include "platform/Geometry.h"
#include "platform/x11/connection/X11Screens.h"

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

namespace roomlattice::platform::x11 {

/// A pixel in the top left corner of each screen that feels the pointer come and go, where nothing else tells of it. It
/// cannot be seen, but it takes the clicks on it.
class CornerWindows {
 public:
  /// `handler` is called from the event loop with the place of the pointer when it has come into a corner, and with
  /// one near that corner when it has left it: where it went nobody tells.
  CornerWindows(const X11Screens& screens, std::function<void(const Point& pointer)> handler);
  ~CornerWindows();
  CornerWindows(const CornerWindows&) = delete;
  CornerWindows& operator=(const CornerWindows&) = delete;

 private:
  class Pixel;

  void follow();

  const X11Screens& screens_;
  std::function<void(const Point& pointer)> handler_;
  std::vector<std::unique_ptr<Pixel>> pixels_;
  QObject context_;  // ends the connections to Qt's signals
};

}  // namespace roomlattice::platform::x11

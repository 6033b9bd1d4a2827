#pragma once

#include "platform/Window.h"

#include <QWidget>
#include <vector>

namespace roomlattice::platform::x11 {

/// The order of the program's overlay windows among themselves: window managers know one layer above ordinary windows,
/// so windows of a higher level are raised again whenever one of a lower level was.
class OverlayStack {
 public:
  void add(QWidget& window, WindowLevel level) { entries_.push_back({&window, level}); }
  void remove(const QWidget& window);

  /// Brings a visible window in front of the others of its level.
  void raise(QWidget& window);

 private:
  struct Entry {
    QWidget* window;
    WindowLevel level;
  };

  std::vector<Entry> entries_;
};

}  // namespace roomlattice::platform::x11

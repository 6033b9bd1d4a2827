#include "platform/x11/windows/OverlayStack.h"

#include <algorithm>

namespace roomlattice::platform::x11 {

void OverlayStack::remove(const QWidget& window) {
  std::erase_if(entries_, [&window](const Entry& entry) { return entry.window == &window; });
}

void OverlayStack::raise(QWidget& window) {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&window](const Entry& entry) { return entry.window == &window; });
  if (found == entries_.end()) {
    return;
  }
  window.raise();
  for (const Entry& entry : entries_) {
    if (entry.level > found->level && entry.window->isVisible()) {
      entry.window->raise();
    }
  }
}

}  // namespace roomlattice::platform::x11

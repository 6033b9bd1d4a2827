#pragma once

#include "platform/WindowServer.h"
#include "support/Listeners.h"

#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace roomlattice::platform::x11 {

/// Which desktop each window was put on by the program. Those who show the windows carry it out: a window manager
/// forgets it when a window is hidden.
class WindowAttachments {
 public:
  void set(WindowNumber window, SpaceID desktop) {
    Entry& entry = entries_[window];
    if (std::exchange(entry.desktop, desktop) != desktop) {
      entry.changes.notify();
    }
  }

  /// To be called when the window is on no desktop in particular.
  void forget(WindowNumber window) {
    if (const auto found = entries_.find(window); found != entries_.end()) {
      found->second.desktop.reset();
    }
  }

  /// Nothing for a window that was never put on a desktop.
  std::optional<SpaceID> desktopOf(WindowNumber window) const {
    const auto found = entries_.find(window);
    return found == entries_.end() ? std::nullopt : found->second.desktop;
  }

  /// Calls `handler` when the window was put on another desktop.
  Registration observe(WindowNumber window, std::function<void()> handler) {
    return entries_[window].changes.add(std::move(handler));
  }

  /// To be called when the window is gone.
  void drop(WindowNumber window) { entries_.erase(window); }

 private:
  struct Entry {
    std::optional<SpaceID> desktop;
    Listeners<> changes;
  };

  std::map<WindowNumber, Entry> entries_;
};

}  // namespace roomlattice::platform::x11

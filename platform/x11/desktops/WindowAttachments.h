#pragma once

#include "platform/WindowServer.h"

#include <map>
#include <optional>

namespace roomlattice::platform::x11 {

/// Which desktop each window was put on by the program, for those who show windows: a window manager forgets it when a
/// window is hidden.
class WindowAttachments {
 public:
  void set(WindowNumber window, SpaceID desktop) { desktops_[window] = desktop; }

  /// To be called when the window is gone or is on no desktop in particular.
  void forget(WindowNumber window) { desktops_.erase(window); }

  /// Nothing for a window that was never put on a desktop.
  std::optional<SpaceID> desktopOf(WindowNumber window) const {
    const auto found = desktops_.find(window);
    return found == desktops_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<WindowNumber, SpaceID> desktops_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/x11/connection/WindowManagerTraits.h"
#include "platform/x11/connection/X11Connection.h"
#include "support/Listeners.h"

#include <functional>
#include <optional>
#include <string>

namespace roomlattice::platform::x11 {

/// A running window manager that supports EWMH, known by its check window.
struct WindowManager {
  xcb_window_t checkWindow = XCB_WINDOW_NONE;
  std::string name;  // as it calls itself, such as "KWin"; may be empty

  bool operator==(const WindowManager&) const = default;
};

/// The window manager that runs on the screen now; nothing while there is none.
std::optional<WindowManager> findWindowManager(X11Connection& connection);

/// Follows window managers coming, going and replacing each other.
class WindowManagerWatch {
 public:
  explicit WindowManagerWatch(X11Connection& connection);

  const std::optional<WindowManager>& current() const { return current_; }

  /// Those of an ordinary one while there is none.
  const WindowManagerTraits& traits() const { return traits_; }

  /// Calls `handler` when another window manager runs, or the same one again, or none.
  Registration observe(std::function<void()> handler);

 private:
  void batchEnded();
  void update();
  void checkWindowDestroyed(xcb_window_t window);
  std::optional<WindowManager> look();
  void take(std::optional<WindowManager> found);

  X11Connection& connection_;
  // By the root window, as a check window. It need not be one yet.
  xcb_window_t named_ = XCB_WINDOW_NONE;
  std::optional<WindowManager> current_;
  WindowManagerTraits traits_;
  Listeners<> listeners_;
  // What was heard is looked into once for each batch of events: anybody may send as many as he likes.
  bool dirty_ = false;
  Registration propertyEvents_;
  Registration destroyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/DockSwipe.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/DesktopSource.h"
#include "support/Listeners.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace roomlattice::platform::x11 {

/// The desktops of the screen, whoever manages them, and switching between them.
class X11Desktops {
 public:
  /// Every change of the list or of the current desktop is posted to `workspaceCenter` as activeSpaceDidChange.
  X11Desktops(X11Connection& connection, linux::MessageBus& sessionBus, WindowManagerWatch& windowManager,
              NotificationCenter& workspaceCenter);

  /// As last heard of; while no window manager runs, as it was. Empty when none ever told.
  const DesktopList& list() const { return list_; }

  /// The place of the desktop in the list, as window managers count them, from 0.
  std::optional<std::size_t> indexOf(SpaceID desktop) const;

  /// Calls `handler` after each change of the list or of the current desktop, when the notice of it was posted.
  Registration observe(std::function<void()> handler) { return listeners_.add(std::move(handler)); }

  /// Calls `handler` after each change of the names, and when they are unknown because the window manager has gone or
  /// been replaced, but never from within `rename`.
  Registration observeNames(std::function<void()> handler) { return nameListeners_.add(std::move(handler)); }

  /// Asks the window manager for another name. Nothing happens for a place that is not in the list.
  void rename(std::size_t index, const std::string& name);

  /// Asks the window manager to switch. Nothing happens for a place that is not in the list.
  void activate(std::size_t index);

  /// The place of the desktop where the switches asked for will lead, which is the current one when there are none.
  std::optional<std::size_t> destination();

  /// Asks for a switch by one desktop, counted from where the switches asked for before will lead, so that quick steps
  /// add up. Nothing happens beyond either end.
  void step(Direction direction);

 private:
  using Clock = std::chrono::steady_clock;

  enum class Moment { Start, Later };

  void windowManagerChanged();
  void selectSource(Moment moment);
  void sourceChanged();
  void settleRequests();

  X11Connection& connection_;
  linux::MessageBus& sessionBus_;
  WindowManagerWatch& windowManager_;
  NotificationCenter& workspaceCenter_;
  DesktopList list_;
  // The switches asked for and not yet seen, oldest first.
  std::deque<std::size_t> requests_;
  Clock::time_point lastRequest_;
  Listeners<> listeners_;
  Listeners<> nameListeners_;
  Registration windowManagerChanges_;
  std::unique_ptr<DesktopSource> source_;
};

}  // namespace roomlattice::platform::x11

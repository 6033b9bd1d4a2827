#pragma once

#include "platform/linux/bus/BusService.h"
#include "platform/linux/tray/TrayTraits.h"
#include "support/Listeners.h"

#include <functional>
#include <set>
#include <string>

namespace roomlattice::platform::linux {

/// Whether a panel shows items of the StatusNotifierItem protocol (freedesktop.org, "StatusNotifierItem"): programs
/// register with a watcher, whose name on the session bus is org.kde.StatusNotifierWatcher, and panels register there
/// as hosts, by names on the bus that begin with org.kde.StatusNotifierHost.
class TrayWatch {
 public:
  enum class State {
    /// The bus has not answered yet. It does within two seconds, or counts as without an answer.
    Unknown,
    /// No watcher, or one without a host: nobody would see an item.
    Absent,
    Present,
  };

  /// The bus must outlive it.
  explicit TrayWatch(MessageBus& bus);

  State state() const { return state_; }

  /// Of the host that runs; those of an ordinary one where there is none.
  const TrayTraits& traits() const { return traits_; }

  /// Calls `handler` from the event loop after each change, and also when a watcher has come in place of another one.
  Registration observe(std::function<void()> handler);

  /// Tells the watcher of the item with that name on the bus. A watcher that comes later has to be told again.
  void registerItem(const std::string& name);

 private:
  void watcherChanged();
  void nameChanged(const BusMessage& message);
  void ask();
  void askForHost();
  void become(State state, TrayTraits traits);

  MessageBus& bus_;
  State state_ = State::Unknown;
  TrayTraits traits_;
  bool isNewWatcher_ = false;
  // Of the watcher that has been asked whether it has a host.
  TrayTraits asked_;
  Listeners<> listeners_;
  BusService watcher_;
  // Names of hosts, each of which has one on the bus. There are watchers that do not tell when a host has come.
  std::set<std::string> hosts_;
  Registration nameChanges_;
  Registration hostCame_;
  Registration hostWent_;
  Registration loss_;
  Registration processQuestion_;
  Registration hostQuestion_;
  OneShotTimer patience_;
};

}  // namespace roomlattice::platform::linux

#pragma once

#include "platform/Registration.h"
#include "platform/x11/connection/X11Connection.h"
#include "support/Listeners.h"

#include <functional>
#include <memory>
#include <utility>

namespace roomlattice::platform::x11 {

/// Makes sure that one Roomlattice runs on a screen: the owner of the selection "_ROOMLATTICE_S<screen>", as ICCCM has
/// managers of a screen claim theirs. The owner's window has the program's class, which tells it from a client that
/// merely holds the selection: the claim is taken from that. The server gives the claim up with the connection, however
/// the process ends.
class InstanceLock {
 public:
  /// Nothing when another Roomlattice has the claim.
  static std::unique_ptr<InstanceLock> acquire(X11Connection& connection);

  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;
  ~InstanceLock();

  /// Calls `handler` from the event loop when another client has taken the claim. Of several that start at once the
  /// last one keeps it.
  Registration observeLoss(std::function<void()> handler) { return lossListeners_.add(std::move(handler)); }

 private:
  InstanceLock(X11Connection& connection, xcb_atom_t selection);

  void batchEnded();

  X11Connection& connection_;
  xcb_atom_t selection_;
  xcb_window_t owner_;
  bool isInDoubt_ = false;
  Listeners<> lossListeners_;
  Registration clearEvents_;
  Registration destroyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11

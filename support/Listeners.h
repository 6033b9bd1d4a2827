#pragma once

#include "support/RegistrationList.h"

#include <functional>
#include <utility>

namespace roomlattice {

/// Callbacks of one kind, called in the order they were added. A callback may add and end callbacks, its own included.
/// The registrations may outlive this object.
template <class... Arguments>
class Listeners {
 public:
  using Callback = std::function<void(Arguments...)>;

  platform::Registration add(Callback callback) { return callbacks_.add(std::move(callback)); }

  void notify(Arguments... arguments) const {
    callbacks_.forEach([&](const Callback& callback) { callback(arguments...); });
  }

  bool empty() const { return callbacks_.empty(); }

 private:
  RegistrationList<Callback> callbacks_;
};

}  // namespace roomlattice

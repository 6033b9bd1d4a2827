#pragma once

#include "platform/Registration.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace roomlattice::platform::x11 {

/// Callbacks of one kind, called in the order they were added. A callback may add and end callbacks, its own included.
/// The registrations may outlive this object.
template <class... Arguments>
class Listeners {
 public:
  using Callback = std::function<void(Arguments...)>;

  Registration add(Callback callback) {
    const std::uint64_t order = nextOrder_++;
    callbacks_->emplace(order, std::make_shared<Callback>(std::move(callback)));
    return Registration([weak = std::weak_ptr(callbacks_), order] {
      if (const auto callbacks = weak.lock()) {
        // Taken out first: what the callback owns may come back here when it ends.
        const auto ended = callbacks->extract(order);
      }
    });
  }

  void notify(Arguments... arguments) const {
    const std::shared_ptr<Map> callbacks = callbacks_;
    const Map now = *callbacks;
    for (const auto& [order, callback] : now) {
      if (callbacks->contains(order)) {
        (*callback)(arguments...);
      }
    }
  }

  bool empty() const { return callbacks_->empty(); }

 private:
  using Map = std::map<std::uint64_t, std::shared_ptr<Callback>>;

  std::shared_ptr<Map> callbacks_ = std::make_shared<Map>();
  std::uint64_t nextOrder_ = 0;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include <memory>
#include <utility>

namespace roomlattice {

/// Lets deferred closures hold their owner weakly: a member of the owner, declared last so that it ends first.
class Lifetime {
 public:
  Lifetime() = default;
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

  /// Wraps `function` so that it does nothing once this object has gone.
  template <class Function>
  auto guard(Function function) const {
    return [alive = std::weak_ptr<const int>(alive_), function = std::move(function)](auto&&... arguments) mutable {
      if (alive.lock()) {
        function(std::forward<decltype(arguments)>(arguments)...);
      }
    };
  }

 private:
  std::shared_ptr<const int> alive_ = std::make_shared<const int>(0);
};

}  // namespace roomlattice

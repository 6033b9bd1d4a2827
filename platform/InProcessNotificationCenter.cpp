#include "platform/InProcessNotificationCenter.h"

#include <utility>

namespace roomlattice::platform {

Registration InProcessNotificationCenter::observe(std::string_view name, Handler handler) {
  std::shared_ptr<Observers>& observers = observers_[std::string(name)];
  if (observers == nullptr) {
    observers = std::make_shared<Observers>();
  }
  const std::uint64_t order = nextOrder_++;
  observers->emplace(order, std::make_shared<Handler>(std::move(handler)));
  return Registration([weak = std::weak_ptr(observers), order] {
    if (const auto remaining = weak.lock()) {
      remaining->erase(order);
    }
  });
}

void InProcessNotificationCenter::post(std::string_view name) {
  const auto found = observers_.find(name);
  if (found == observers_.end()) {
    return;
  }
  const std::shared_ptr<Observers> observers = found->second;
  const Observers atPost = *observers;
  for (const auto& [order, handler] : atPost) {
    if (observers->contains(order)) {
      (*handler)();
    }
  }
}

}  // namespace roomlattice::platform

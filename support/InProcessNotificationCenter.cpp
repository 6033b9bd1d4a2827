#include "support/InProcessNotificationCenter.h"

#include <utility>

namespace roomlattice {

platform::Registration InProcessNotificationCenter::observe(std::string_view name, Handler handler) {
  return observers_[std::string(name)].add(std::move(handler));
}

void InProcessNotificationCenter::post(std::string_view name) {
  if (const auto found = observers_.find(name); found != observers_.end()) {
    found->second.notify();
  }
}

}  // namespace roomlattice

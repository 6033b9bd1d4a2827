#pragma once

#include "platform/NotificationCenter.h"
#include "support/Listeners.h"

#include <functional>
#include <map>
#include <string>

namespace roomlattice {

/// A notification centre for backends whose system has none.
class InProcessNotificationCenter final : public platform::NotificationCenter {
 public:
  platform::Registration observe(std::string_view name, Handler handler) override;
  void post(std::string_view name) override;

 private:
  std::map<std::string, Listeners<>, std::less<>> observers_;
};

}  // namespace roomlattice

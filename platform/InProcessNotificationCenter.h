#pragma once

#include "platform/NotificationCenter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace roomlattice::platform {

/// A notification centre for backends whose system has none.
class InProcessNotificationCenter final : public NotificationCenter {
 public:
  Registration observe(std::string_view name, Handler handler) override;
  void post(std::string_view name) override;

 private:
  // Keyed by order of registration. Shared with the registrations, which may outlive the centre.
  using Observers = std::map<std::uint64_t, std::shared_ptr<Handler>>;

  std::map<std::string, std::shared_ptr<Observers>, std::less<>> observers_;
  std::uint64_t nextOrder_ = 0;
};

}  // namespace roomlattice::platform

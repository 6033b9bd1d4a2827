#pragma once

#import "platform/macos/ObjectPointer.h"

#include "platform/NotificationCenter.h"

#include <map>
#include <memory>
#include <string>

namespace roomlattice::platform::macos {

/// One of the system's notification centres. Which of several observers of a name it calls first is not documented, so
/// it has one observer for each name, which calls the others in order.
class MacNotificationCenter final : public NotificationCenter {
 public:
  explicit MacNotificationCenter(NSNotificationCenter* center) : center_(share(center)) {}

  Registration observe(std::string_view name, Handler handler) override;
  void post(std::string_view name) override;

 private:
  class Relay;

  std::shared_ptr<Relay> relay(std::string_view name);

  ObjectPointer<NSNotificationCenter> center_;
  // A relay belongs to the registrations it serves.
  std::map<std::string, std::weak_ptr<Relay>, std::less<>> relays_;
};

}  // namespace roomlattice::platform::macos

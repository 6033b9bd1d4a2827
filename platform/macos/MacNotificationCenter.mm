#import "platform/macos/MacNotificationCenter.h"

#import <dispatch/dispatch.h>

#import "platform/macos/Action.h"
#import "platform/macos/NotificationNames.h"

#include "support/InProcessNotificationCenter.h"

namespace roomlattice::platform::macos {

/// The system's observer of one name, for as long as it lives.
class MacNotificationCenter::Relay {
 public:
  Relay(const ObjectPointer<NSNotificationCenter>& center, std::string_view name) : center_(center) {
    const auto deliver = [observers = observers_, name = std::string(name)](id) { Relay::deliver(observers, name); };
    observer_ = adopt([[RoomlatticeAction alloc] initWithFunction:deliver]);
    [center_.get() addObserver:observer_.get() selector:@selector(invoke:) name:toNSNotificationName(name) object:nil];
  }
  Relay(const Relay&) = delete;
  Relay& operator=(const Relay&) = delete;
  ~Relay() { [center_.get() removeObserver:observer_.get()]; }

  Registration observe(std::string_view name, Handler handler) { return observers_->observe(name, std::move(handler)); }

 private:
  using Observers = std::shared_ptr<InProcessNotificationCenter>;

  static void deliver(const Observers& observers, const std::string& name) {
    observers->post(name);
    if (name == notification::interfaceThemeChanged) {
      // It may come before the application has its new appearance.
      const Observers again = observers;
      dispatch_async(dispatch_get_main_queue(), ^{
        again->post(notification::interfaceThemeChanged);
      });
    }
  }

  ObjectPointer<NSNotificationCenter> center_;
  ObjectPointer<RoomlatticeAction> observer_;
  Observers observers_ = std::make_shared<InProcessNotificationCenter>();
};

Registration MacNotificationCenter::observe(std::string_view name, Handler handler) {
  const std::shared_ptr<Relay> serving = relay(name);
  auto observation = std::make_shared<Registration>(serving->observe(name, std::move(handler)));
  return Registration([serving, observation] { observation->cancel(); });
}

void MacNotificationCenter::post(std::string_view name) {
  @autoreleasepool {
    [center_.get() postNotificationName:toNSNotificationName(name) object:nil];
  }
}

std::shared_ptr<MacNotificationCenter::Relay> MacNotificationCenter::relay(std::string_view name) {
  std::weak_ptr<Relay>& known = relays_[std::string(name)];
  std::shared_ptr<Relay> relay = known.lock();
  if (relay == nullptr) {
    relay = std::make_shared<Relay>(center_, name);
    known = relay;
  }
  return relay;
}

}  // namespace roomlattice::platform::macos

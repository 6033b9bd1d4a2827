#pragma once

#include "platform/Registration.h"
#include "platform/linux/bus/BusService.h"

#include <QObject>
#include <QPointer>
#include <vector>

namespace roomlattice::platform::x11 {

/// Lets the toolkit find the service for people with disabilities (org.a11y.Bus on the session bus) also when that
/// comes after the program. The toolkit would ask it on the spot, on the main thread, and wait for as long as D-Bus
/// allows. So it is told only of a service that has just been seen to answer.
class AccessibilityWatch {
 public:
  /// Has the toolkit look for the service now. To be made before the first window, while the buses that the toolkit
  /// finds are known to answer.
  explicit AccessibilityWatch(linux::MessageBus& sessionBus);

 private:
  void serviceCame();

  // The toolkit's own watches, if any: each is a QDBusServiceWatcher.
  std::vector<QPointer<QObject>> toolkits_;
  linux::BusService service_;
  Registration ready_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/ControlEndpoint.h"
#include "platform/linux/bus/BusName.h"
#include "platform/linux/bus/BusObject.h"

#include <functional>
#include <list>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// The program's commands as an object on the session bus, described in
/// packaging/linux/org.roomlattice.Roomlattice.xml, as long as this lives. Every program has the name of its display;
/// "org.roomlattice.Roomlattice" has the one that has run longest.
class ControlService {
 public:
  /// `nameOfDisplay` is empty where there is none. `log` is told of a name that another program has. Without a bus
  /// nobody ever calls. The others must outlive this.
  ControlService(MessageBus& sessionBus, const std::string& nameOfDisplay, Commands& commands,
                 const std::function<void(const std::string&)>& log);

 private:
  void tell(const std::vector<DesktopChange>& changes);

  BusObject object_;
  std::list<BusName> names_;
  Registration changes_;
};

}  // namespace roomlattice::platform::linux

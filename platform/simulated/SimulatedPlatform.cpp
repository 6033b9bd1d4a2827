#include "platform/simulated/SimulatedPlatform.h"

namespace roomlattice::platform::simulated {

SimulatedPlatform::SimulatedPlatform(SimulatedDesktop& desktop)
    : dispatcher_(desktop.time()),
      application_(desktop.time()),
      defaults_(desktop),
      desktopNames_(desktop),
      events_(desktop.events(), desktop.faults),
      notifications_(desktop),
      system_(desktop, dispatcher_),
      userInterface_(desktop, dispatcher_),
      windowServer_(desktop) {}

SimulatedPlatform::~SimulatedPlatform() {
  // What is queued may own windows and registrations of the services.
  dispatcher_.endTasks();
}

}  // namespace roomlattice::platform::simulated

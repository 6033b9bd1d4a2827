#pragma once

#include "platform/Platform.h"
#include "platform/simulated/SimulatedApplication.h"
#include "platform/simulated/SimulatedControlEndpoint.h"
#include "platform/simulated/SimulatedDefaults.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedDesktopNames.h"
#include "platform/simulated/SimulatedDispatcher.h"
#include "platform/simulated/SimulatedEvents.h"
#include "platform/simulated/SimulatedNotifications.h"
#include "platform/simulated/SimulatedSystem.h"
#include "platform/simulated/SimulatedUserInterface.h"
#include "platform/simulated/SimulatedWindowServer.h"
#include "support/JsonText.h"

namespace roomlattice::platform::simulated {

/// One run of a program on a simulated desktop, which outlives it; one at a time. When it goes, nothing that is still
/// queued for the program runs any more. The program's own objects go before it.
class SimulatedPlatform final : public Platform {
 public:
  explicit SimulatedPlatform(SimulatedDesktop& desktop);
  ~SimulatedPlatform() override;

  SimulatedApplication& application() override { return application_; }
  SimulatedControlEndpoint& control() override { return control_; }
  SimulatedDefaults& defaults() override { return defaults_; }
  SimulatedDesktopNames& desktopNames() override { return desktopNames_; }
  SimulatedDispatcher& dispatcher() override { return dispatcher_; }
  SimulatedEvents& events() override { return events_; }
  JsonCodec& json() override { return json_; }
  SimulatedNotifications& notifications() override { return notifications_; }
  SimulatedSystem& system() override { return system_; }
  SimulatedUserInterface& userInterface() override { return userInterface_; }
  SimulatedWindowServer& windowServer() override { return windowServer_; }

 private:
  SimulatedDispatcher dispatcher_;
  SimulatedApplication application_;
  SimulatedControlEndpoint control_;
  SimulatedDefaults defaults_;
  SimulatedDesktopNames desktopNames_;
  SimulatedEvents events_;
  JsonTextCodec json_;
  SimulatedNotifications notifications_;
  SimulatedSystem system_;
  SimulatedUserInterface userInterface_;
  SimulatedWindowServer windowServer_;
};

}  // namespace roomlattice::platform::simulated

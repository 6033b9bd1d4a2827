#pragma once

#include "platform/Application.h"
#include "platform/ControlEndpoint.h"
#include "platform/Defaults.h"
#include "platform/DesktopNames.h"
#include "platform/Dispatcher.h"
#include "platform/Events.h"
#include "platform/JsonCodec.h"
#include "platform/NotificationCenter.h"
#include "platform/System.h"
#include "platform/UserInterface.h"
#include "platform/WindowServer.h"

namespace roomlattice::platform {

/// A system to run on: one of each service, living as long as this object. What holds for all services, unless one says
/// otherwise:
///
/// - Threads: everything happens on the main thread, the calls as well as the callbacks.
/// - Callbacks: none comes before the call that registered it has returned. None is empty: what need not be given has a
///   default that does nothing.
/// - Registrations, and objects that a service makes, may end at any time, also from within their own callbacks;
///   registrations even after their service has gone. No callback comes afterwards.
/// - Failure is silent: what a call gives or leaves undone then, its comment says.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual Application& application() = 0;
  virtual ControlEndpoint& control() = 0;
  virtual Defaults& defaults() = 0;
  virtual DesktopNames& desktopNames() = 0;
  virtual Dispatcher& dispatcher() = 0;
  virtual Events& events() = 0;
  virtual JsonCodec& json() = 0;
  virtual Notifications& notifications() = 0;
  virtual System& system() = 0;
  virtual UserInterface& userInterface() = 0;
  virtual WindowServer& windowServer() = 0;
};

}  // namespace roomlattice::platform

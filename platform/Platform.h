#pragma once

#include "platform/Application.h"
#include "platform/Defaults.h"
#include "platform/Dispatcher.h"
#include "platform/Events.h"
#include "platform/JsonCodec.h"
#include "platform/NotificationCenter.h"
#include "platform/System.h"
#include "platform/UserInterface.h"
#include "platform/WindowServer.h"

namespace roomlattice::platform {

/// A system to run on: one of each service, living as long as this object.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual Application& application() = 0;
  virtual Defaults& defaults() = 0;
  virtual Dispatcher& dispatcher() = 0;
  virtual Events& events() = 0;
  virtual JsonCodec& json() = 0;
  virtual Notifications& notifications() = 0;
  virtual System& system() = 0;
  virtual UserInterface& userInterface() = 0;
  virtual WindowServer& windowServer() = 0;
};

}  // namespace roomlattice::platform

#pragma once

#include "platform/ControlEndpoint.h"
#include "platform/linux/bus/MessageBus.h"

#include <functional>
#include <string>

namespace roomlattice::platform::linux {

/// Other programs come over the session bus.
class LinuxControlEndpoint final : public ControlEndpoint {
 public:
  /// As ControlService has them; the registrations must end before the bus does.
  LinuxControlEndpoint(MessageBus& sessionBus, std::string nameOfDisplay, std::function<void(const std::string&)> log);

  Registration serve(Commands& commands) override;

 private:
  MessageBus& sessionBus_;
  std::string nameOfDisplay_;
  std::function<void(const std::string&)> log_;
};

}  // namespace roomlattice::platform::linux

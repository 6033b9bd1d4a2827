#include "platform/linux/control/LinuxControlEndpoint.h"

#include "platform/linux/control/ControlService.h"

#include <memory>
#include <utility>

namespace roomlattice::platform::linux {

LinuxControlEndpoint::LinuxControlEndpoint(MessageBus& sessionBus, std::string nameOfDisplay,
                                           std::function<void(const std::string&)> log)
    : sessionBus_(sessionBus), nameOfDisplay_(std::move(nameOfDisplay)), log_(std::move(log)) {}

Registration LinuxControlEndpoint::serve(Commands& commands) {
  auto service = std::make_shared<ControlService>(sessionBus_, nameOfDisplay_, commands, log_);
  return Registration([service = std::move(service)]() mutable { service.reset(); });
}

}  // namespace roomlattice::platform::linux

#import "platform/macos/MacPlatform.h"

#import "platform/macos/CommandLine.h"
#import "platform/macos/MacApplication.h"
#import "platform/macos/MacDefaults.h"
#import "platform/macos/MacDispatcher.h"
#import "platform/macos/MacEvents.h"
#import "platform/macos/MacJsonCodec.h"
#import "platform/macos/MacNotifications.h"
#import "platform/macos/MacSystem.h"
#import "platform/macos/MacUserInterface.h"
#import "platform/macos/MacWindowServer.h"

#include "support/NoControlEndpoint.h"
#include "support/NoDesktopNames.h"

namespace roomlattice::platform::macos {
namespace {

class MacPlatform final : public Platform {
 public:
  Application& application() override { return application_; }
  ControlEndpoint& control() override { return control_; }
  Defaults& defaults() override { return defaults_; }
  DesktopNames& desktopNames() override { return desktopNames_; }
  Dispatcher& dispatcher() override { return dispatcher_; }
  Events& events() override { return events_; }
  JsonCodec& json() override { return json_; }
  Notifications& notifications() override { return notifications_; }
  System& system() override { return system_; }
  UserInterface& userInterface() override { return userInterface_; }
  WindowServer& windowServer() override { return windowServer_; }

 private:
  // First, because AppKit wants its application before anything else.
  MacApplication application_;
  NoControlEndpoint control_;
  MacDefaults defaults_;
  NoDesktopNames desktopNames_;
  MacDispatcher dispatcher_;
  MacEvents events_;
  MacJsonCodec json_;
  MacNotifications notifications_;
  MacSystem system_;
  MacUserInterface userInterface_;
  MacWindowServer windowServer_;
};

}  // namespace

std::unique_ptr<Platform> makePlatform() {
  @autoreleasepool {
    return std::make_unique<MacPlatform>();
  }
}

}  // namespace roomlattice::platform::macos

namespace roomlattice::platform {

std::variant<std::unique_ptr<Platform>, ExitStatus> makeNativePlatform(int& argc, char** argv) {
  @autoreleasepool {
    if (const std::optional<ExitStatus> status = macos::answerCommandLine(argc, argv)) {
      return *status;
    }
  }
  return macos::makePlatform();
}

}  // namespace roomlattice::platform

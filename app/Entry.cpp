#include "app/Entry.h"

#include "app/AppDelegate.h"
#include "support/Installation.h"

namespace roomlattice {

int runRoomlattice(platform::Platform& platform) {
  const Installation installation(platform);
  platform::Application& application = platform.application();
  application.setActivationPolicy(platform::ActivationPolicy::Accessory);
  AppDelegate delegate(platform);
  return application.run([&delegate] { delegate.applicationDidFinishLaunching(); });
}

}  // namespace roomlattice

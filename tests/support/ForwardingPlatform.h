#pragma once

#include "platform/Platform.h"

namespace roomlattice::tests {

/// Hands every service of another platform on. A test that wants one service to be different overrides that one.
class ForwardingPlatform : public platform::Platform {
 public:
  explicit ForwardingPlatform(platform::Platform& inner) : inner_(inner) {}

  platform::Application& application() override { return inner_.application(); }
  platform::ControlEndpoint& control() override { return inner_.control(); }
  platform::Defaults& defaults() override { return inner_.defaults(); }
  platform::DesktopNames& desktopNames() override { return inner_.desktopNames(); }
  platform::Dispatcher& dispatcher() override { return inner_.dispatcher(); }
  platform::Events& events() override { return inner_.events(); }
  platform::JsonCodec& json() override { return inner_.json(); }
  platform::Notifications& notifications() override { return inner_.notifications(); }
  platform::System& system() override { return inner_.system(); }
  platform::UserInterface& userInterface() override { return inner_.userInterface(); }
  platform::WindowServer& windowServer() override { return inner_.windowServer(); }

 private:
  platform::Platform& inner_;
};

}  // namespace roomlattice::tests

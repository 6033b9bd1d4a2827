#pragma once

#import "platform/macos/WindowServerFunctions.h"

#include "platform/WindowServer.h"

namespace roomlattice::platform::macos {

class MacWindowServer final : public WindowServer {
 public:
  explicit MacWindowServer(const WindowServerFunctions& functions = WindowServerFunctions::load())
      : functions_(functions) {}

  Value managedDisplaySpaces() override;
  SpaceID activeSpace() override;
  void addWindowToSpace(WindowNumber window, SpaceID space) override;
  void removeWindowFromSpace(WindowNumber window, SpaceID space) override;

 private:
  using Attachment = decltype(WindowServerFunctions::CGSAddWindowsToSpaces);

  void attach(Attachment change, WindowNumber window, SpaceID space);

  WindowServerFunctions functions_;
};

}  // namespace roomlattice::platform::macos

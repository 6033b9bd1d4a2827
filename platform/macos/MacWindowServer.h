#pragma once

#import "platform/macos/WindowServerFunctions.h"

#include "platform/WindowServer.h"

#include <optional>

namespace roomlattice::platform::macos {

class MacWindowServer final : public WindowServer {
 public:
  explicit MacWindowServer(const WindowServerFunctions& server = WindowServerFunctions::load()) : server_(server) {}

  Value managedDisplaySpaces() override;
  SpaceID activeSpace() override;
  void addWindowToSpace(WindowNumber window, SpaceID space) override;
  void removeWindowFromSpace(WindowNumber window, SpaceID space) override;

 private:
  using Attachment = decltype(WindowServerFunctions::CGSAddWindowsToSpaces);

  /// Nothing where the window server gives no connection.
  std::optional<WindowServerFunctions::Connection> connection() const;
  void attach(Attachment change, WindowNumber window, SpaceID space);

  WindowServerFunctions server_;
};

}  // namespace roomlattice::platform::macos

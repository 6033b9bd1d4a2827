#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/HostedView.h"

#include "platform/Menu.h"

#include <memory>
#include <vector>

namespace roomlattice::platform::macos {

/// One opening of a menu: the program's rows are hosted exactly as long as this object lives. The native items stay
/// until the next opening replaces them: the menu may still be fading out, and the chosen one is yet to be acted on.
class MenuSession {
 public:
  /// Has `menu`, which must outlive the session, brought up to date and fills `native` with its items.
  MenuSession(Menu& menu, NSMenu* native);

 private:
  std::vector<std::unique_ptr<HostedView>> rows_;
};

}  // namespace roomlattice::platform::macos

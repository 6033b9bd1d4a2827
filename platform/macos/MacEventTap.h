#pragma once

#import <ApplicationServices/ApplicationServices.h>

#include "platform/Events.h"

#include <memory>

namespace roomlattice::platform::macos {

/// A CGEventTap with its source in the main run loop.
class MacEventTap final : public EventTap {
 public:
  /// Nothing when the system gives no tap.
  static std::unique_ptr<MacEventTap> create(Events::TapHandler handler);

  ~MacEventTap() override;
  MacEventTap(const MacEventTap&) = delete;
  MacEventTap& operator=(const MacEventTap&) = delete;

  void enable() override;

 private:
  /// What the tap calls. Its handler may end the tap.
  struct Listener {
    Events::TapHandler handler;
    bool isEnabled = false;
  };

  MacEventTap(CFMachPortRef port, std::shared_ptr<Listener>* listener);

  static CGEventRef received(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userData);

  CFMachPortRef port_;
  CFRunLoopSourceRef source_;
  std::unique_ptr<std::shared_ptr<Listener>> listener_;
};

}  // namespace roomlattice::platform::macos

#pragma once

#import <ApplicationServices/ApplicationServices.h>

#import "platform/macos/CoreFoundationPointer.h"

#include "platform/Events.h"

#include <memory>

namespace roomlattice::platform::macos {

/// A tap for Quartz events with its source in the main run loop.
class MacEventTap final : public EventTap {
 public:
  /// Nothing when the system gives no tap.
  static std::unique_ptr<MacEventTap> create(Events::TapHandler handler);

  ~MacEventTap() override;
  MacEventTap(const MacEventTap&) = delete;
  MacEventTap& operator=(const MacEventTap&) = delete;

  void enable() override;

 private:
  using Port = CoreFoundationPointer<CFMachPortRef>;

  /// What the tap calls. Its handler may end the tap.
  struct Listener {
    Events::TapHandler handler;
    bool isEnabled = false;
  };

  MacEventTap(Port port, std::unique_ptr<std::shared_ptr<Listener>> listener);

  static CGEventRef received(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userData);

  Port port_;
  CoreFoundationPointer<CFRunLoopSourceRef> source_;
  // The tap has the address of the pointer.
  std::unique_ptr<std::shared_ptr<Listener>> listener_;
};

}  // namespace roomlattice::platform::macos

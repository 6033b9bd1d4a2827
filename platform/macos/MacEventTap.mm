#import "platform/macos/MacEventTap.h"

#import "platform/macos/MacEvent.h"

#include <utility>

namespace roomlattice::platform::macos {

std::unique_ptr<MacEventTap> MacEventTap::create(Events::TapHandler handler) {
  auto listener = std::make_unique<std::shared_ptr<Listener>>(std::make_shared<Listener>());
  (*listener)->handler = std::move(handler);
  const CFMachPortRef port = CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly,
                                              kCGEventMaskForAllEvents, &MacEventTap::received, listener.get());
  return std::unique_ptr<MacEventTap>(port == nullptr ? nullptr : new MacEventTap(port, listener.release()));
}

MacEventTap::MacEventTap(CFMachPortRef port, std::shared_ptr<Listener>* listener)
    : port_(port), source_(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port, 0)), listener_(listener) {
  CFRunLoopAddSource(CFRunLoopGetCurrent(), source_, kCFRunLoopCommonModes);
}

MacEventTap::~MacEventTap() {
  CGEventTapEnable(port_, false);
  (*listener_)->isEnabled = false;
  CFRunLoopRemoveSource(CFRunLoopGetCurrent(), source_, kCFRunLoopCommonModes);
  CFMachPortInvalidate(port_);
  CFRelease(source_);
  CFRelease(port_);
}

void MacEventTap::enable() {
  (*listener_)->isEnabled = true;
  CGEventTapEnable(port_, true);
}

CGEventRef MacEventTap::received(CGEventTapProxy, CGEventType type, CGEventRef event, void* userData) {
  if (userData != nullptr) {
    const std::shared_ptr<Listener> listener = *static_cast<std::shared_ptr<Listener>*>(userData);
    // The system makes taps that are enabled already.
    if (listener->isEnabled) {
      @autoreleasepool {
        const bool isNotice = type == kCGEventTapDisabledByTimeout || type == kCGEventTapDisabledByUserInput;
        listener->handler(MacEvent(isNotice ? nullptr : event), static_cast<std::uint32_t>(type));
      }
    }
  }
  return event;
}

}  // namespace roomlattice::platform::macos

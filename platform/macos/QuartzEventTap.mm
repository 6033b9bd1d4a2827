#import "platform/macos/QuartzEventTap.h"

#import "platform/macos/QuartzEvent.h"

#include <utility>

namespace roomlattice::platform::macos {

std::unique_ptr<QuartzEventTap> QuartzEventTap::create(Events::TapHandler handler) {
  auto listener = std::make_unique<std::shared_ptr<Listener>>(std::make_shared<Listener>());
  (*listener)->handler = std::move(handler);
  const CFMachPortRef port = CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly,
                                              kCGEventMaskForAllEvents, &QuartzEventTap::received, listener.get());
  return std::unique_ptr<QuartzEventTap>(port == nullptr ? nullptr : new QuartzEventTap(port, listener.release()));
}

QuartzEventTap::QuartzEventTap(CFMachPortRef port, std::shared_ptr<Listener>* listener)
    : port_(port), source_(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port, 0)), listener_(listener) {
  CFRunLoopAddSource(CFRunLoopGetCurrent(), source_, kCFRunLoopCommonModes);
}

QuartzEventTap::~QuartzEventTap() {
  CGEventTapEnable(port_, false);
  (*listener_)->isEnabled = false;
  CFRunLoopRemoveSource(CFRunLoopGetCurrent(), source_, kCFRunLoopCommonModes);
  CFMachPortInvalidate(port_);
  CFRelease(source_);
  CFRelease(port_);
}

void QuartzEventTap::enable() {
  (*listener_)->isEnabled = true;
  CGEventTapEnable(port_, true);
}

CGEventRef QuartzEventTap::received(CGEventTapProxy, CGEventType type, CGEventRef event, void* userData) {
  if (userData != nullptr) {
    const std::shared_ptr<Listener> listener = *static_cast<std::shared_ptr<Listener>*>(userData);
    // The system makes taps that are enabled already.
    if (listener->isEnabled) {
      @autoreleasepool {
        const bool isNotice = type == kCGEventTapDisabledByTimeout || type == kCGEventTapDisabledByUserInput;
        listener->handler(QuartzEvent(isNotice ? nullptr : event), static_cast<std::uint32_t>(type));
      }
    }
  }
  return event;
}

}  // namespace roomlattice::platform::macos

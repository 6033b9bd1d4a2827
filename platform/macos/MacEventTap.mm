#import "platform/macos/MacEventTap.h"

#import "platform/macos/MacEvent.h"

#include "support/FieldEvent.h"

#include <utility>

namespace roomlattice::platform::macos {

std::unique_ptr<MacEventTap> MacEventTap::create(Events::TapHandler handler) {
  auto listener = std::make_unique<std::shared_ptr<Listener>>(std::make_shared<Listener>());
  (*listener)->handler = std::move(handler);
  Port port = Port::adopt(CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly,
                                           kCGEventMaskForAllEvents, &MacEventTap::received, listener.get()));
  return std::unique_ptr<MacEventTap>(port ? new MacEventTap(std::move(port), std::move(listener)) : nullptr);
}

MacEventTap::MacEventTap(Port port, std::unique_ptr<std::shared_ptr<Listener>> listener)
    : port_(std::move(port)),
      source_(CoreFoundationPointer<CFRunLoopSourceRef>::adopt(
          CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port_.get(), 0))),
      listener_(std::move(listener)) {
  CFRunLoopAddSource(CFRunLoopGetCurrent(), source_.get(), kCFRunLoopCommonModes);
}

MacEventTap::~MacEventTap() {
  CGEventTapEnable(port_.get(), false);
  (*listener_)->isEnabled = false;
  CFRunLoopRemoveSource(CFRunLoopGetCurrent(), source_.get(), kCFRunLoopCommonModes);
  CFMachPortInvalidate(port_.get());
}

void MacEventTap::enable() {
  (*listener_)->isEnabled = true;
  CGEventTapEnable(port_.get(), true);
}

CGEventRef MacEventTap::received(CGEventTapProxy, CGEventType type, CGEventRef event, void* userData) {
  const std::shared_ptr<Listener> listener = *static_cast<std::shared_ptr<Listener>*>(userData);
  // The system makes taps that are enabled already.
  if (listener->isEnabled) {
    @autoreleasepool {
      const auto number = static_cast<std::uint32_t>(type);
      if (type == kCGEventTapDisabledByTimeout || type == kCGEventTapDisabledByUserInput) {
        listener->handler(FieldEvent(), number);
      } else {
        listener->handler(MacEvent(CoreFoundationPointer<CGEventRef>::share(event)), number);
      }
    }
  }
  return event;
}

}  // namespace roomlattice::platform::macos

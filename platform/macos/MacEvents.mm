#import "platform/macos/MacEvents.h"

#import <AppKit/AppKit.h>

#import "platform/macos/MacEvent.h"
#import "platform/macos/MacEventTap.h"
#import "platform/macos/MacKeyEvent.h"
#import "platform/macos/ObjectPointer.h"

#include <memory>
#include <optional>
#include <utility>

namespace roomlattice::platform::macos {
namespace {

/// What a monitor calls; empty once its registration has ended.
template <class Handler>
using SharedHandler = std::shared_ptr<std::optional<Handler>>;

template <class Handler>
Registration monitorRegistration(id monitor, const SharedHandler<Handler>& handler) {
  if (monitor == nil) {
    return {};
  }
  const ObjectPointer<NSObject> token = share(static_cast<NSObject*>(monitor));
  return Registration([token, handler] {
    [NSEvent removeMonitor:token.get()];
    handler->reset();
  });
}

}  // namespace

std::unique_ptr<Event> MacEvents::createEvent() {
  auto event = CoreFoundationPointer<CGEventRef>::adopt(CGEventCreate(nullptr));
  return event ? std::make_unique<MacEvent>(std::move(event)) : nullptr;
}

void MacEvents::post(const Event& event) {
  CGEventPost(kCGSessionEventTap, static_cast<const MacEvent&>(event).get());
}

std::unique_ptr<EventTap> MacEvents::createTap(TapHandler handler) {
  return MacEventTap::create(std::move(handler));
}

Registration MacEvents::monitorGlobalMouseMoved(std::function<void()> handler) {
  using Handler = std::function<void()>;
  const auto shared = std::make_shared<std::optional<Handler>>(std::move(handler));
  id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:NSEventMaskMouseMoved
                                                      handler:^(NSEvent*) {
                                                        // A copy: the call may end the registration.
                                                        if (const std::optional<Handler> running = *shared) {
                                                          (*running)();
                                                        }
                                                      }];
  return monitorRegistration(monitor, shared);
}

Registration MacEvents::monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) {
  using Handler = std::function<KeyDisposition(const KeyEvent&)>;
  const auto shared = std::make_shared<std::optional<Handler>>(std::move(handler));
  id monitor =
      [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                            handler:^NSEvent*(NSEvent* event) {
                                              const std::optional<Handler> running = *shared;
                                              const bool isSwallowed =
                                                  running && (*running)(MacKeyEvent(event)) == KeyDisposition::Swallow;
                                              return isSwallowed ? nil : event;
                                            }];
  return monitorRegistration(monitor, shared);
}

Point MacEvents::mouseLocation() const {
  const NSPoint location = [NSEvent mouseLocation];
  return {location.x, location.y};
}

}  // namespace roomlattice::platform::macos

#include "tests/macos/supplement/EventMonitors.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include "tests/macos/supplement/Blocks.h"

#include <algorithm>

using roomlattice::gnustep::BlockPointer;
using roomlattice::gnustep::MonitorRecord;

namespace {

using GlobalHandler = void (^)(NSEvent*);
using LocalHandler = NSEvent* (^)(NSEvent*);

struct Monitor {
  NSObject* token = nil;
  MonitorRecord record;
  BlockPointer<GlobalHandler> global;
  BlockPointer<LocalHandler> local;
};

std::vector<Monitor> monitors;
bool refuses = false;

id add(const Monitor& monitor) {
  if (refuses) {
    return nil;
  }
  monitors.push_back(monitor);
  // The list keeps one reference, as AppKit does.
  monitors.back().token = [[NSObject alloc] init];
  return monitors.back().token;
}

bool matches(const Monitor& monitor, NSEvent* event) {
  return (monitor.record.mask & NSEventMaskFromType([event type])) != 0;
}

/// Nil when a monitor has swallowed it.
NSEvent* afterLocalMonitors(NSEvent* event) {
  for (const Monitor& monitor : std::vector(monitors)) {
    if (event != nil && !monitor.record.isGlobal && matches(monitor, event)) {
      event = monitor.local.get()(event);
    }
  }
  return event;
}

using SendEvent = void (*)(id, SEL, NSEvent*);
SendEvent originalSendEvent;

void sendEvent(id application, SEL command, NSEvent* event) {
  NSEvent* remaining = afterLocalMonitors(event);
  if (remaining != nil) {
    originalSendEvent(application, command, remaining);
  }
}

}  // namespace

@implementation NSEvent (Supplement)

+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))handler {
  return add({.record = {.isGlobal = true, .mask = mask}, .global = BlockPointer(handler)});
}

+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))handler {
  return add({.record = {.isGlobal = false, .mask = mask}, .local = BlockPointer(handler)});
}

+ (void)removeMonitor:(id)token {
  const auto found = std::ranges::find(monitors, token, [](const Monitor& monitor) { return (id)monitor.token; });
  if (found != monitors.end()) {
    [found->token release];
    monitors.erase(found);
  }
}

@end

@interface SupplementEventHook : NSObject
@end

@implementation SupplementEventHook

+ (void)load {
  Method method = class_getInstanceMethod(objc_getClass("NSApplication"), @selector(sendEvent:));
  originalSendEvent = (SendEvent)method_getImplementation(method);
  method_setImplementation(method, (IMP)sendEvent);
}

@end

namespace roomlattice::gnustep {

std::vector<MonitorRecord> eventMonitors() {
  std::vector<MonitorRecord> records;
  for (const Monitor& monitor : monitors) {
    records.push_back(monitor.record);
  }
  return records;
}

void refuseMonitors(bool refuse) {
  refuses = refuse;
}

void movePointerOutside() {
  NSEvent* event = [NSEvent mouseEventWithType:NSMouseMoved
                                      location:[NSEvent mouseLocation]
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:0
                                       context:nil
                                   eventNumber:0
                                    clickCount:0
                                      pressure:0];
  for (const Monitor& monitor : std::vector(monitors)) {
    if (monitor.record.isGlobal && matches(monitor, event)) {
      monitor.global.get()(event);
    }
  }
}

}  // namespace roomlattice::gnustep

#include "tests/macos/supplement/EventStream.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#include <algorithm>

using roomlattice::gnustep::EventStream;
using roomlattice::gnustep::FieldRecord;
using roomlattice::gnustep::PostedEvent;
using roomlattice::gnustep::TapRecord;

namespace {

int liveObjectCount = 0;

}  // namespace

@interface SupplementObject : NSObject
@end

@implementation SupplementObject

- (instancetype)init {
  ++liveObjectCount;
  return [super init];
}

- (void)dealloc {
  --liveObjectCount;
  [super dealloc];
}

@end

@interface SupplementQuartzEvent : SupplementObject {
 @public
  PostedEvent* record_;
}
@end

@implementation SupplementQuartzEvent

- (instancetype)init {
  self = [super init];
  record_ = new PostedEvent;
  return self;
}

- (void)dealloc {
  delete record_;
  [super dealloc];
}

@end

@interface SupplementPort : SupplementObject {
 @public
  TapRecord* record_;
  CGEventTapCallBack callback_;
  void* userData_;
}
@end

@implementation SupplementPort

- (instancetype)init {
  self = [super init];
  record_ = new TapRecord;
  return self;
}

- (void)dealloc {
  delete record_;
  [super dealloc];
}

@end

@interface SupplementSource : SupplementObject {
 @public
  SupplementPort* port_;
}
@end

@implementation SupplementSource

- (void)dealloc {
  [port_ release];
  [super dealloc];
}

@end

namespace {

std::vector<SupplementPort*> ports;

SupplementQuartzEvent* object(CGEventRef event) {
  return (SupplementQuartzEvent*)event;
}

void setField(CGEventRef event, const FieldRecord& record) {
  object(event)->record_->fields.push_back(record);
}

/// The value last set, 0 for none.
double field(CGEventRef event, std::uint32_t number) {
  const std::vector<FieldRecord>& fields = object(event)->record_->fields;
  const auto found = std::find_if(fields.rbegin(), fields.rend(), [&](const auto& one) { return one.field == number; });
  return found == fields.rend() ? 0.0 : found->value;
}

}  // namespace

namespace roomlattice::gnustep {

EventStream& EventStream::shared() {
  static EventStream stream;
  return stream;
}

void EventStream::reset() {
  *this = {};
}

std::vector<TapRecord> EventStream::taps() const {
  std::vector<TapRecord> records;
  for (const SupplementPort* port : ports) {
    records.push_back(*port->record_);
  }
  return records;
}

bool EventStream::send(const std::vector<FieldRecord>& fields, std::uint32_t type) {
  SupplementQuartzEvent* event = [[SupplementQuartzEvent alloc] init];
  event->record_->fields = fields;
  bool unchanged = true;
  for (SupplementPort* port : std::vector(ports)) {
    if (port->record_->isEnabled && port->record_->isInCommonModes) {
      const CGEventRef sent = (CGEventRef)event;
      unchanged = port->callback_(nullptr, static_cast<CGEventType>(type), sent, port->userData_) == sent && unchanged;
    }
  }
  [event release];
  return unchanged;
}

void EventStream::disableTaps(std::uint32_t notice) {
  for (SupplementPort* port : std::vector(ports)) {
    port->record_->isEnabled = false;
    port->callback_(nullptr, static_cast<CGEventType>(notice), nullptr, port->userData_);
  }
}

int EventStream::liveObjects() {
  return liveObjectCount;
}

}  // namespace roomlattice::gnustep

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFRunLoopMode kCFRunLoopCommonModes = (CFStringRef) @"kCFRunLoopCommonModes";

CFTypeRef CFRetain(CFTypeRef object) {
  return [(id)object retain];
}

void CFRelease(CFTypeRef object) {
  [(id)object release];
}

CGEventRef CGEventCreate(CGEventSourceRef source) {
  if (EventStream::shared().refusesEvents) {
    return nullptr;
  }
  SupplementQuartzEvent* event = [[SupplementQuartzEvent alloc] init];
  event->record_->hasSource = source != nullptr;
  return (CGEventRef)event;
}

void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, std::int64_t value) {
  setField(event, {field, FieldRecord::Kind::Integer, static_cast<double>(value)});
}

void CGEventSetDoubleValueField(CGEventRef event, CGEventField field, double value) {
  setField(event, {field, FieldRecord::Kind::Double, value});
}

std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField number) {
  return static_cast<std::int64_t>(field(event, number));
}

double CGEventGetDoubleValueField(CGEventRef event, CGEventField number) {
  return field(event, number);
}

void CGEventPost(CGEventTapLocation location, CGEventRef event) {
  PostedEvent record = *object(event)->record_;
  record.location = location;
  EventStream& stream = EventStream::shared();
  stream.posted.push_back(record);
  if (stream.onPost) {
    stream.onPost(record);
  }
}

CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement placement, CGEventTapOptions options,
                               CGEventMask mask, CGEventTapCallBack callback, void* userData) {
  if (EventStream::shared().refusesTaps) {
    return nullptr;
  }
  SupplementPort* port = [[SupplementPort alloc] init];
  // Taps are enabled from the beginning.
  *port->record_ = {.location = location, .placement = placement, .options = options, .mask = mask, .isEnabled = true};
  port->callback_ = callback;
  port->userData_ = userData;
  ports.push_back(port);
  return (CFMachPortRef)port;
}

void CGEventTapEnable(CFMachPortRef tap, bool enable) {
  ((SupplementPort*)tap)->record_->isEnabled = enable;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex order) {
  SupplementSource* source = [[SupplementSource alloc] init];
  source->port_ = [(SupplementPort*)port retain];
  source->port_->record_->sourceOrder = order;
  return (CFRunLoopSourceRef)source;
}

void CFMachPortInvalidate(CFMachPortRef port) {
  std::erase(ports, (SupplementPort*)port);
}

CFRunLoopRef CFRunLoopGetCurrent() {
  return (CFRunLoopRef)[NSRunLoop currentRunLoop];
}

void CFRunLoopAddSource(CFRunLoopRef runLoop, CFRunLoopSourceRef source, CFRunLoopMode mode) {
  ((SupplementSource*)source)->port_->record_->isInCommonModes =
      (NSRunLoop*)runLoop == [NSRunLoop mainRunLoop] && mode == kCFRunLoopCommonModes;
}

void CFRunLoopRemoveSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode) {
  ((SupplementSource*)source)->port_->record_->isInCommonModes = false;
}
}

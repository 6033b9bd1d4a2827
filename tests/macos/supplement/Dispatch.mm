#import <AppKit/AppKit.h>
#import <dispatch/dispatch.h>

#include "tests/macos/supplement/Blocks.h"
#include "tests/macos/supplement/DispatchRecord.h"

#include <algorithm>
#include <atomic>
#include <chrono>

using roomlattice::gnustep::BlockPointer;

namespace {

using Handler = BlockPointer<dispatch_block_t>;

NSTimeInterval secondsUntil(dispatch_time_t when) {
  const dispatch_time_t now = dispatch_time(DISPATCH_TIME_NOW, 0);
  return when > now ? static_cast<double>(when - now) * 1e-9 : 0.0;
}

/// The modes in which the main thread of a Mac serves its main queue.
NSArray* mainQueueModes() {
  return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode, nil];
}

}  // namespace

/// A block on its way to a queue, or the handler of a timer.
@interface SupplementWork : NSObject {
 @public
  Handler* handler_;
  NSTimeInterval delay_;
}
- (instancetype)initWithBlock:(dispatch_block_t)block;
- (void)run;
- (void)startDelay;
@end

@implementation SupplementWork

- (instancetype)initWithBlock:(dispatch_block_t)block {
  self = [super init];
  handler_ = new Handler(block);
  return self;
}

- (void)dealloc {
  delete handler_;
  [super dealloc];
}

- (void)run {
  handler_->get()();
}

- (void)runInBackground {
  @autoreleasepool {
    [self run];
  }
}

- (void)fire:(NSTimer*)timer {
  [[self retain] autorelease];
  [self run];
}

- (NSTimer*)scheduleAt:(NSDate*)date interval:(NSTimeInterval)interval repeats:(BOOL)repeats {
  NSTimer* timer = [[[NSTimer alloc] initWithFireDate:date
                                             interval:interval
                                               target:self
                                             selector:@selector(fire:)
                                             userInfo:nil
                                              repeats:repeats] autorelease];
  for (NSString* mode in mainQueueModes()) {
    [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
  }
  return timer;
}

- (void)startDelay {
  [self scheduleAt:[NSDate dateWithTimeIntervalSinceNow:delay_] interval:0 repeats:NO];
}

- (void)perform:(SEL)selector {
  [self performSelectorOnMainThread:selector withObject:nil waitUntilDone:NO modes:mainQueueModes()];
}

@end

struct SupplementQueue {};
struct SupplementSourceType {};

struct SupplementTimer {
  std::atomic<int> count{1};
  dispatch_time_t start = 0;
  roomlattice::gnustep::TimerRecord record;
  SupplementWork* work = nil;
  NSTimer* timer = nil;
};

namespace {

SupplementQueue mainQueue;
SupplementQueue globalQueue;
const SupplementSourceType timerType;
std::intptr_t lastGlobalIdentifier = 0;
std::vector<SupplementTimer*> running;
std::uint64_t passedUptime = 0;

}  // namespace

namespace roomlattice::gnustep {

void letUptimePass(std::chrono::nanoseconds duration) {
  passedUptime += static_cast<std::uint64_t>(duration.count());
}

std::vector<TimerRecord> runningTimers() {
  std::vector<TimerRecord> records;
  for (const SupplementTimer* timer : running) {
    records.push_back(timer->record);
  }
  return records;
}

std::intptr_t lastGlobalQueue() {
  return lastGlobalIdentifier;
}

}  // namespace roomlattice::gnustep

extern "C" {

const dispatch_source_type_t DISPATCH_SOURCE_TYPE_TIMER = &timerType;

std::uint64_t clock_gettime_nsec_np(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 + static_cast<std::uint64_t>(now.tv_nsec) +
         passedUptime;
}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta) {
  const dispatch_time_t base = when == DISPATCH_TIME_NOW ? clock_gettime_nsec_np(CLOCK_UPTIME_RAW) : when;
  return base + static_cast<dispatch_time_t>(delta);
}

dispatch_queue_t dispatch_get_main_queue() {
  return &mainQueue;
}

dispatch_queue_t dispatch_get_global_queue(std::intptr_t identifier, std::uintptr_t) {
  lastGlobalIdentifier = identifier;
  return &globalQueue;
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
  SupplementWork* work = [[SupplementWork alloc] initWithBlock:block];
  if (queue == &mainQueue) {
    [work perform:@selector(run)];
  } else {
    [NSThread detachNewThreadSelector:@selector(runInBackground) toTarget:work withObject:nil];
  }
  [work release];
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t, dispatch_block_t block) {
  SupplementWork* work = [[SupplementWork alloc] initWithBlock:block];
  work->delay_ = secondsUntil(when);
  if ([NSThread isMainThread]) {
    [work startDelay];
  } else {
    [work perform:@selector(startDelay)];
  }
  [work release];
}

dispatch_source_t dispatch_source_create(dispatch_source_type_t, std::uintptr_t, std::uintptr_t, dispatch_queue_t) {
  return new SupplementTimer;
}

void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, std::uint64_t interval,
                               std::uint64_t leeway) {
  source->start = start;
  source->record = {interval, leeway};
}

void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler) {
  [source->work release];
  source->work = [[SupplementWork alloc] initWithBlock:handler];
}

void dispatch_resume(dispatch_source_t source) {
  NSDate* first = [NSDate dateWithTimeIntervalSinceNow:secondsUntil(source->start)];
  source->timer = [[source->work scheduleAt:first
                                   interval:static_cast<double>(source->record.interval) * 1e-9
                                    repeats:YES] retain];
  running.push_back(source);
}

void dispatch_source_cancel(dispatch_source_t source) {
  [source->timer invalidate];
  std::erase(running, source);
}

void dispatch_release(dispatch_source_t source) {
  if (source->count.fetch_sub(1) == 1) {
    dispatch_source_cancel(source);
    [source->timer release];
    [source->work release];
    delete source;
  }
}
}

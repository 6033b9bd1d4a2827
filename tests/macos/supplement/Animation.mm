#include "tests/macos/supplement/Animation.h"

#import <AppKit/AppKit.h>
#import <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

#include "tests/macos/supplement/Properties.h"

using roomlattice::gnustep::AnimationRecord;
using roomlattice::gnustep::property;
using roomlattice::gnustep::setProperty;

namespace {

const char animatorKey[] = "animator";
constexpr NSTimeInterval defaultDuration = 0.25;
constexpr NSTimeInterval frameTime = 1.0 / 60.0;

std::vector<AnimationRecord> records;

}  // namespace

@interface SupplementAnimationContext : NSAnimationContext {
  BOOL forbidsImplicitAnimation_;
}
@end

@implementation SupplementAnimationContext

- (instancetype)init {
  self = [super init];
  [self setDuration:defaultDuration];
  return self;
}

- (void)setAllowsImplicitAnimation:(BOOL)allows {
  forbidsImplicitAnimation_ = !allows;
}

- (BOOL)allowsImplicitAnimation {
  return !forbidsImplicitAnimation_;
}

@end

/// Moves a window's alpha in steps. As on a Mac, a value set directly in between is overrun by the next step.
@interface SupplementAnimator : NSObject {
  NSWindow* window_;  // not kept: it owns this
  NSTimer* timer_;
  NSTimeInterval start_;
  NSTimeInterval duration_;
  double from_;
  double to_;
}
- (instancetype)initWithWindow:(NSWindow*)window;
- (void)stop;
@end

@implementation SupplementAnimator

- (instancetype)initWithWindow:(NSWindow*)window {
  self = [super init];
  window_ = window;
  return self;
}

- (void)stop {
  [timer_ invalidate];
  timer_ = nil;
}

- (void)setAlphaValue:(CGFloat)alpha {
  NSAnimationContext* context = [NSAnimationContext currentContext];
  records.push_back({[context duration], static_cast<bool>([context allowsImplicitAnimation]), alpha});
  [self stop];
  duration_ = [context duration];
  if (duration_ <= 0.0) {
    [window_ setAlphaValue:alpha];
    return;
  }
  from_ = [window_ alphaValue];
  to_ = alpha;
  start_ = [NSDate timeIntervalSinceReferenceDate];
  timer_ = [NSTimer scheduledTimerWithTimeInterval:frameTime
                                            target:self
                                          selector:@selector(step:)
                                          userInfo:nil
                                           repeats:YES];
}

- (void)step:(NSTimer*)timer {
  const double elapsed = [NSDate timeIntervalSinceReferenceDate] - start_;
  const double share = std::min(elapsed / duration_, 1.0);
  [window_ setAlphaValue:from_ + (to_ - from_) * share];
  if (share >= 1.0) {
    [self stop];
  }
}

@end

/// What a window has of its animator, which goes with the window: a timer that is running would keep it.
@interface SupplementAnimatorOwner : NSObject {
 @public
  SupplementAnimator* animator_;
}
@end

@implementation SupplementAnimatorOwner

- (void)dealloc {
  [animator_ stop];
  [animator_ release];
  [super dealloc];
}

@end

@implementation NSWindow (Supplement)

- (id)animator {
  SupplementAnimatorOwner* owner = property(self, animatorKey);
  if (owner == nil) {
    owner = [[SupplementAnimatorOwner alloc] init];
    owner->animator_ = [[SupplementAnimator alloc] initWithWindow:self];
    setProperty(self, animatorKey, owner);
    // At once: in an autorelease pool it could outlive the window.
    [owner release];
  }
  return owner->animator_;
}

@end

namespace {

NSMutableArray* contexts() {
  static NSMutableArray* contexts =
      [[NSMutableArray alloc] initWithObjects:[[[SupplementAnimationContext alloc] init] autorelease], nil];
  return contexts;
}

}  // namespace

@implementation NSAnimationContext (Supplement)

+ (void)beginGrouping {
  [contexts() addObject:[[[SupplementAnimationContext alloc] init] autorelease]];
}

+ (void)endGrouping {
  [contexts() removeLastObject];
}

+ (NSAnimationContext*)currentContext {
  return [contexts() lastObject];
}

+ (void)runAnimationGroup:(GSAnimationContextChanges)changes
        completionHandler:(GSAnimationContextCompletionHandler)completionHandler {
  [self beginGrouping];
  NSAnimationContext* context = [self currentContext];
  changes(context);
  const auto end = static_cast<std::int64_t>(([context duration] + frameTime) * 1e9);
  [self endGrouping];
  if (completionHandler != nullptr) {
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, end), dispatch_get_main_queue(),
                   (dispatch_block_t)completionHandler);
  }
}

- (void)setAllowsImplicitAnimation:(BOOL)allows {
}

- (BOOL)allowsImplicitAnimation {
  return YES;
}

@end

namespace roomlattice::gnustep {

std::vector<AnimationRecord> takeAnimations() {
  return std::exchange(records, {});
}

}  // namespace roomlattice::gnustep

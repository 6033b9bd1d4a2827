#include "tests/macos/MainLoop.h"

#import <AppKit/AppKit.h>

namespace roomlattice::tests {
namespace {

void turn() {
  @autoreleasepool {
    NSEvent* event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                        untilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event != nil) {
      [NSApp sendEvent:event];
    }
  }
}

/// What a condition only looks at must not live on for that.
bool holds(const std::function<bool()>& condition) {
  @autoreleasepool {
    return condition();
  }
}

}  // namespace

bool runUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds(condition)) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    turn();
  }
  return true;
}

void runFor(std::chrono::milliseconds duration) {
  const auto end = std::chrono::steady_clock::now() + duration;
  while (std::chrono::steady_clock::now() < end) {
    turn();
  }
}

}  // namespace roomlattice::tests

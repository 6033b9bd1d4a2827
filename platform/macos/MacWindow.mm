#import "platform/macos/MacWindow.h"

#import <dispatch/dispatch.h>

#import "platform/macos/Geometry.h"

#include <cmath>
#include <utility>

namespace roomlattice::platform::macos {
namespace {

// A window keeps its opacity in fewer bits than it was given.
constexpr double alphaPrecision = 1e-4;

NSWindowCollectionBehavior toNSWindowCollectionBehavior(CollectionBehavior behavior) {
  return static_cast<NSWindowCollectionBehavior>(behavior);
}

NSTimeInterval toNSTimeInterval(Duration duration) {
  return std::chrono::duration<NSTimeInterval>(duration).count();
}

/// With its edges on pixels, or what is in it would be blurred. A window that is out of sight is on no screen.
NSRect toWindowFrame(const Rect& frame, NSWindow* window) {
  NSScreen* screen = [window screen] == nil ? [NSScreen mainScreen] : [window screen];
  return screen == nil ? toNSRect(frame) : [screen backingAlignedRect:toNSRect(frame) options:NSAlignAllEdgesNearest];
}

}  // namespace

MacWindow::MacWindow(const OverlayWindowOptions& options)
    : window_(adopt([[NSWindow alloc] initWithContentRect:toWindowFrame(options.frame, nil)
                                                styleMask:NSWindowStyleMaskBorderless
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO])),
      alpha_(options.alpha) {
  NSWindow* window = window_.get();
  [window setReleasedWhenClosed:NO];
  [window setOpaque:NO];
  [window setBackgroundColor:[NSColor clearColor]];
  [window setHasShadow:YES];
  [window setIgnoresMouseEvents:YES];
  [window setLevel:static_cast<NSInteger>(options.level)];
  [window setCollectionBehavior:toNSWindowCollectionBehavior(options.collectionBehavior)];
  [window setAlphaValue:options.alpha];
}

MacWindow::~MacWindow() {
  if (fade_) {
    setAlpha(alpha());
  }
  [window_.get() orderOut:nil];
  host_.reset();
  [window_.get() close];
}

WindowNumber MacWindow::number() const {
  return [window_.get() windowNumber];
}

void MacWindow::setContentView(std::unique_ptr<View> view) {
  host_.reset();
  view_ = std::move(view);
  if (view_ != nullptr) {
    host_ = std::make_unique<HostedView>(*view_);
  }
  [window_.get() setContentView:host_ == nullptr ? nil : host_->get()];
}

Rect MacWindow::frame() const {
  return toRect([window_.get() frame]);
}

void MacWindow::setFrame(const Rect& frame) {
  [window_.get() setFrame:toWindowFrame(frame, window_.get()) display:YES];
  // It would keep the shape of what was shown before.
  [window_.get() invalidateShadow];
}

void MacWindow::setCollectionBehavior(CollectionBehavior behavior) {
  [window_.get() setCollectionBehavior:toNSWindowCollectionBehavior(behavior)];
}

double MacWindow::alpha() const {
  const double shown = [window_.get() alphaValue];
  return std::abs(shown - alpha_) < alphaPrecision ? alpha_ : shown;
}

void MacWindow::setAlpha(double alpha) {
  alpha_ = alpha;
  if (fade_) {
    fade_.reset();
    settle();
  } else {
    [window_.get() setAlphaValue:alpha];
  }
}

void MacWindow::settle() {
  [NSAnimationContext beginGrouping];
  [[NSAnimationContext currentContext] setDuration:0.0];
  [[NSAnimationContext currentContext] setAllowsImplicitAnimation:NO];
  [[window_.get() animator] setAlphaValue:alpha_];
  [NSAnimationContext endGrouping];
}

void MacWindow::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  alpha_ = alpha;
  fade_.emplace();
  const auto end = [this, completion = std::move(completion)] {
    fade_.reset();
    completion();
  };
  const auto shared = std::make_shared<std::function<void()>>(fade_->guard(end));
  void (^finish)() = ^{
    (*shared)();
  };
  if (duration <= Duration::zero()) {
    settle();
    dispatch_async(dispatch_get_main_queue(), finish);
    return;
  }
  NSWindow* window = window_.get();
  [NSAnimationContext
      runAnimationGroup:^(NSAnimationContext* context) {
        [context setDuration:toNSTimeInterval(duration)];
        [[window animator] setAlphaValue:alpha];
      }
      completionHandler:finish];
}

void MacWindow::orderFront() {
  // An accessory application is hardly ever the active one.
  [window_.get() orderFrontRegardless];
}

void MacWindow::orderOut() {
  [window_.get() orderOut:nil];
}

}  // namespace roomlattice::platform::macos

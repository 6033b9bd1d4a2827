#import "platform/macos/MacWindow.h"

#import <dispatch/dispatch.h>

#import "platform/macos/Geometry.h"

#include <utility>

namespace roomlattice::platform::macos {
namespace {

NSWindowCollectionBehavior bits(CollectionBehavior behavior) {
  return static_cast<NSWindowCollectionBehavior>(behavior);
}

NSTimeInterval seconds(Duration duration) {
  return std::chrono::duration<NSTimeInterval>(duration).count();
}

}  // namespace

MacWindow::MacWindow(const OverlayWindowOptions& options)
    : window_(adopt([[NSWindow alloc] initWithContentRect:toNSRect(options.frame)
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
  [window setCollectionBehavior:bits(options.collectionBehavior)];
  [window setAlphaValue:options.alpha];
}

MacWindow::~MacWindow() {
  ++animation_->number;
  if (animation_->isRunning) {
    settle(alpha());
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
    [window_.get() setContentView:host_->get()];
  }
}

Rect MacWindow::frame() const {
  return toRect([window_.get() frame]);
}

void MacWindow::setFrame(const Rect& frame) {
  [window_.get() setFrame:toNSRect(frame) display:YES];
}

void MacWindow::setCollectionBehavior(CollectionBehavior behavior) {
  [window_.get() setCollectionBehavior:bits(behavior)];
}

double MacWindow::alpha() const {
  return animation_->isRunning ? [window_.get() alphaValue] : alpha_;
}

void MacWindow::setAlpha(double alpha) {
  ++animation_->number;
  alpha_ = alpha;
  if (std::exchange(animation_->isRunning, false)) {
    settle(alpha);
  }
  [window_.get() setAlphaValue:alpha];
}

void MacWindow::settle(double alpha) {
  [NSAnimationContext beginGrouping];
  [[NSAnimationContext currentContext] setDuration:0.0];
  [[NSAnimationContext currentContext] setAllowsImplicitAnimation:NO];
  [[window_.get() animator] setAlphaValue:alpha];
  [NSAnimationContext endGrouping];
}

void MacWindow::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  const std::uint64_t number = ++animation_->number;
  const std::shared_ptr<Animation> animation = animation_;
  alpha_ = alpha;
  startAnimation(duration, ^{
    if (animation->number == number) {
      animation->isRunning = false;
      if (completion) {
        completion();
      }
    }
  });
}

void MacWindow::startAnimation(Duration duration, void (^finish)()) {
  animation_->isRunning = duration > Duration::zero();
  if (!animation_->isRunning) {
    settle(alpha_);
    [window_.get() setAlphaValue:alpha_];
    dispatch_async(dispatch_get_main_queue(), finish);
    return;
  }
  NSWindow* window = window_.get();
  const double alpha = alpha_;
  [NSAnimationContext
      runAnimationGroup:^(NSAnimationContext* context) {
        [context setDuration:seconds(duration)];
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

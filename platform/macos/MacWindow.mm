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
      change_(std::make_shared<AlphaChange>(AlphaChange{.alpha = options.alpha})) {
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
  if (change_->isUnderWay) {
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
  }
  [window_.get() setContentView:host_ == nullptr ? nil : host_->get()];
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
  return change_->isUnderWay ? [window_.get() alphaValue] : change_->alpha;
}

void MacWindow::setAlpha(double alpha) {
  const auto replaced = std::exchange(change_, std::make_shared<AlphaChange>(AlphaChange{.alpha = alpha}));
  if (replaced->isUnderWay) {
    settle(alpha);
  } else {
    [window_.get() setAlphaValue:alpha];
  }
}

void MacWindow::settle(double alpha) {
  [NSAnimationContext beginGrouping];
  [[NSAnimationContext currentContext] setDuration:0.0];
  [[NSAnimationContext currentContext] setAllowsImplicitAnimation:NO];
  [[window_.get() animator] setAlphaValue:alpha];
  [NSAnimationContext endGrouping];
}

void MacWindow::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  const bool isAtOnce = duration <= Duration::zero();
  change_ = std::make_shared<AlphaChange>(AlphaChange{.alpha = alpha, .isUnderWay = !isAtOnce});
  const std::weak_ptr<AlphaChange> weak = change_;
  void (^finish)() = ^{
    if (const auto change = weak.lock()) {
      change->isUnderWay = false;
      completion();
    }
  };
  if (isAtOnce) {
    settle(alpha);
    dispatch_async(dispatch_get_main_queue(), finish);
    return;
  }
  NSWindow* window = window_.get();
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

#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/HostedView.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Window.h"

#include <cstdint>
#include <memory>

namespace roomlattice::platform::macos {

/// A borderless NSWindow. Its opacity is animated by its animator.
class MacWindow final : public Window {
 public:
  explicit MacWindow(const OverlayWindowOptions& options);
  ~MacWindow() override;
  MacWindow(const MacWindow&) = delete;
  MacWindow& operator=(const MacWindow&) = delete;

  WindowNumber number() const override;
  void setContentView(std::unique_ptr<View> view) override;
  View* contentView() const override { return view_.get(); }
  Rect frame() const override;
  void setFrame(const Rect& frame) override;
  void setCollectionBehavior(CollectionBehavior behavior) override;
  double alpha() const override;
  void setAlpha(double alpha) override;
  void animateAlpha(double alpha, Duration duration, std::function<void()> completion) override;
  void orderFront() override;
  void orderOut() override;

 private:
  /// The animation under way. What AppKit still calls for an earlier one finds another number.
  struct Animation {
    std::uint64_t number = 0;
    bool isRunning = false;
  };

  /// Has the animator take the value at once, in place of what it was about.
  void settle(double alpha);
  void startAnimation(Duration duration, void (^finish)());

  ObjectPointer<NSWindow> window_;
  std::unique_ptr<View> view_;
  std::unique_ptr<HostedView> host_;
  std::shared_ptr<Animation> animation_ = std::make_shared<Animation>();
  // Where an animation leads. The window may keep it with less precision.
  double alpha_;
};

}  // namespace roomlattice::platform::macos

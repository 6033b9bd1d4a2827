#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/HostedView.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Window.h"
#include "support/Lifetime.h"

#include <memory>
#include <optional>

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
  /// Has the animator take the value at once, in place of what it was about.
  void settle();

  ObjectPointer<NSWindow> window_;
  std::unique_ptr<View> view_;
  std::unique_ptr<HostedView> host_;
  // Set or aimed at.
  double alpha_;
  // While an animation is under way.
  std::optional<Lifetime> fade_;
};

}  // namespace roomlattice::platform::macos

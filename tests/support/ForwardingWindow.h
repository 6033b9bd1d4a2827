#pragma once

#include "platform/Window.h"

#include <functional>
#include <memory>
#include <utility>

namespace roomlattice::tests {

/// Owns another window and hands everything on to it; see ForwardingPlatform.
class ForwardingWindow : public platform::Window {
 public:
  explicit ForwardingWindow(std::unique_ptr<platform::Window> inner) : inner_(std::move(inner)) {}

  platform::WindowNumber number() const override { return inner_->number(); }
  void setContentView(std::unique_ptr<platform::View> view) override { inner_->setContentView(std::move(view)); }
  platform::View* contentView() const override { return inner_->contentView(); }
  platform::Rect frame() const override { return inner_->frame(); }
  void setFrame(const platform::Rect& frame) override { inner_->setFrame(frame); }
  void setCollectionBehavior(platform::CollectionBehavior behavior) override {
    inner_->setCollectionBehavior(behavior);
  }
  double alpha() const override { return inner_->alpha(); }
  void setAlpha(double alpha) override { inner_->setAlpha(alpha); }
  void animateAlpha(double alpha, platform::Duration duration, std::function<void()> completion) override {
    inner_->animateAlpha(alpha, duration, std::move(completion));
  }
  void orderFront() override { inner_->orderFront(); }
  void orderOut() override { inner_->orderOut(); }

 private:
  std::unique_ptr<platform::Window> inner_;
};

}  // namespace roomlattice::tests

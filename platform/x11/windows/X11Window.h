#pragma once

#include "platform/Window.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/windows/AlphaAnimation.h"
#include "platform/x11/windows/Excursion.h"
#include "platform/x11/windows/OverlayEnvironment.h"
#include "platform/x11/windows/OverlayPane.h"

#include <memory>
#include <optional>

namespace roomlattice::platform::x11 {

/// An overlay window: above other windows, out of taskbars and pagers, on one desktop or on all. The compositor decides
/// whether windows of its types have a shadow.
///
/// Where windows are blended, the alpha is the window's opacity. Elsewhere the window is drawn without any
/// transparency, cut to the shape of its background, and to nothing while its alpha is no more than a trace.
///
/// A window on all desktops stands for an excursion: while it is ordered in, until it begins to fade out, keys are
/// held and the user is brought back in the end.
class X11Window final : public Window {
 public:
  X11Window(OverlayEnvironment& environment, const OverlayWindowOptions& options);
  ~X11Window() override;

  /// That of the X window, which is another one after windows have begun to be blended, or have ceased to be.
  WindowNumber number() const override { return pane_->id(); }
  void setContentView(std::unique_ptr<View> view) override;
  View* contentView() const override { return view_.get(); }
  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame) override;
  void setCollectionBehavior(CollectionBehavior behavior) override;
  double alpha() const override { return alpha_.value(); }
  void setAlpha(double alpha) override { alpha_.set(alpha); }
  void animateAlpha(double alpha, Duration duration, std::function<void()> completion) override;
  void orderFront() override;
  void orderOut() override;

 private:
  bool blends() const;
  bool paintsOpacity() const;
  QRect place() const;
  bool isToBeSeen() const;
  bool isComingUp() const;
  bool isWantedOnScreen() const;

  OverlaySurface::Depth wantedDepth() const;
  void makePane();
  void compositorChanged();
  void changeDepth();

  /// Brings what is on the screen in line with what was asked for.
  void present();
  void withdrawUnlessNeeded();
  void mapAnew();
  void applyLook();

  OverlayEnvironment& environment_;
  WindowLevel level_;
  CollectionBehavior behavior_;
  Rect frame_;
  bool orderedIn_ = false;
  std::unique_ptr<View> view_;
  OverlaySurface::Depth depth_ = OverlaySurface::Depth::OfScreen;  // the pane's
  std::optional<OverlayPane> pane_;
  AlphaAnimation alpha_;
  // Until it is to be seen again.
  bool withdrawn_ = false;
  linux::OneShotTimer presentSoon_{[this] { present(); }};
  linux::OneShotTimer withdrawLater_{[this] {
    withdrawn_ = true;
    present();
  }};
  std::optional<Excursion> excursion_;
  Registration compositorChanges_;
  Registration managementChanges_;
  Registration desktopChanges_;
};

}  // namespace roomlattice::platform::x11

#pragma once

#include "platform/Window.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/windows/AlphaAnimation.h"
#include "platform/x11/windows/DesktopKeeper.h"
#include "platform/x11/windows/Excursion.h"
#include "platform/x11/windows/OverlayEnvironment.h"
#include "platform/x11/windows/OverlayPicture.h"
#include "platform/x11/windows/OverlaySurface.h"

#include <optional>
#include <vector>

namespace roomlattice::platform::x11 {

/// An overlay window: above other windows, out of taskbars and pagers, on one desktop or on all. The compositor decides
/// whether windows of its types have a shadow.
///
/// Where windows are blended, the alpha is the window's opacity. Elsewhere the window is drawn without any
/// transparency, cut to the shape of its background, and it is on the screen only while its alpha is more than a trace.
///
/// A window on all desktops stands for an excursion: while it is ordered in, until it begins to fade out, keys are
/// held and the user is brought back in the end.
class X11Window final : public Window {
 public:
  X11Window(OverlayEnvironment& environment, const OverlayWindowOptions& options);
  ~X11Window() override;

  WindowNumber number() const override { return native_.id(); }
  void setContentView(std::unique_ptr<View> view) override;
  View* contentView() const override { return view_.get(); }
  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame) override;
  void setCollectionBehavior(CollectionBehavior behavior) override { desktop_.setCollectionBehavior(behavior); }
  double alpha() const override { return alpha_.value(); }
  void setAlpha(double alpha) override { alpha_.set(alpha); }
  void animateAlpha(double alpha, Duration duration, std::function<void()> completion) override;
  void orderFront() override;
  void orderOut() override;

 private:
  bool isWantedOnScreen() const;

  /// Brings what is on the screen in line with what was asked for.
  void present();
  void map();
  void mapAnew();
  void raise();
  void draw();
  void applyBlending();
  void applyOpacity();
  void applyShape();

  void listen();
  void reparented(const xcb_reparent_notify_event_t& reparent);
  void propertyChanged(const xcb_property_notify_event_t& property);

  OverlayEnvironment& environment_;
  Rect frame_;
  bool orderedIn_ = false;
  std::unique_ptr<View> view_;
  OverlaySurface surface_{[this] { draw(); }};
  NativeWindow native_;
  DesktopKeeper desktop_;
  std::optional<OverlayPicture> picture_;
  AlphaAnimation alpha_;
  std::optional<double> writtenOpacity_;
  std::vector<xcb_rectangle_t> writtenShape_;
  bool paintsOpacity_ = false;
  linux::OneShotTimer presentSoon_{[this] { present(); }};
  std::optional<Excursion> excursion_;
  Registration compositorChanges_;
  Registration managementChanges_;
  Registration desktopChanges_;
  Registration reparentEvents_;
  Registration propertyEvents_;
};

}  // namespace roomlattice::platform::x11

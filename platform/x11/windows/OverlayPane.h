#pragma once

#include "platform/Window.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/windows/DesktopKeeper.h"
#include "platform/x11/windows/OverlayEnvironment.h"
#include "platform/x11/windows/OverlayPicture.h"
#include "platform/x11/windows/OverlaySurface.h"

#include <QRect>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace roomlattice::platform::x11 {

/// The X window of an overlay, with what is drawn there. Whether it can be blended with what is below it is settled
/// for its life: an X window that can has another depth, and where nobody blends the server keeps a second picture of
/// it and copies that to the screen by itself.
class OverlayPane {
 public:
  /// `mapped` is called each time the window has come onto the screen.
  OverlayPane(OverlayEnvironment& environment, WindowLevel level, CollectionBehavior behavior,
              OverlaySurface::Depth depth, std::function<void()> mapped);
  ~OverlayPane();
  OverlayPane(const OverlayPane&) = delete;
  OverlayPane& operator=(const OverlayPane&) = delete;

  xcb_window_t id() const { return native_.id(); }
  DesktopKeeper& desktop() { return desktop_; }
  const DesktopKeeper& desktop() const { return desktop_; }
  /// Whether it was asked to appear, and has not been hidden since.
  bool isVisible() const { return surface_.isVisible(); }

  /// Whether the window manager has put it on the screen, which may be long after it was asked to.
  bool isMapped() const { return isMapped_; }

  /// Shows the view, which must live until another one is shown, or this object is gone; nothing for none.
  void show(View* view);

  /// Gives the window its place, in Qt's coordinates; false when it had that place already.
  bool place(const QRect& frame) { return surface_.place(frame); }

  /// Draws the view, which is otherwise drawn by itself when it has to be.
  void draw();

  void setBlending(const Blending& blending);
  void setOpacity(double opacity);

  /// To be called before the opacity moves in many steps. As the program would be woken to hear of each, it takes no
  /// news of the window's properties for that long, and looks at them afterwards.
  void opacityWillMove(std::chrono::milliseconds duration);

  /// Cuts the window to the round corners of its view, or to nothing at all, or lets it be whole.
  enum class Cut { RoundCorners, Everything, Nothing };
  void setCut(Cut cut);

  /// Has the window managed, with its hints, in front of the others of its level.
  void appear();
  void hide() { surface_.hide(); }
  void raise();
  void flush() { native_.flush(); }

 private:
  // The parts of the window that there are; all where there is none.
  using Shape = std::optional<std::vector<xcb_rectangle_t>>;

  Shape shapeOf(Cut cut) const;
  void prepareToAppear();
  void appearAgain();
  void listen(std::function<void()> mapped);
  void selectEvents(std::uint32_t eventMask);
  void opacityMoved();
  void reparented(const xcb_reparent_notify_event_t& reparent);
  void passOpacityOn();
  void propertyChanged(const xcb_property_notify_event_t& property);
  void refuseAttention();

  OverlayEnvironment& environment_;
  OverlaySurface surface_;
  NativeWindow native_;
  DesktopKeeper desktop_;
  std::optional<OverlayPicture> picture_;
  std::optional<double> writtenOpacity_;
  Shape writtenShape_;
  linux::OneShotTimer listenAgainLater_{[this] { opacityMoved(); }};
  linux::OneShotTimer appearAgainLater_{[this] { appearAgain(); }};
  bool isMapped_ = false;
  // What a window manager has put around it.
  std::optional<xcb_window_t> frame_;
  Registration exposeEvents_;
  Registration configureEvents_;
  Registration mapEvents_;
  Registration unmapEvents_;
  Registration reparentEvents_;
  Registration propertyEvents_;
};

}  // namespace roomlattice::platform::x11

#include "platform/x11/windows/X11Window.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// Without blending, nothing is to be seen of a window of no more than this alpha.
constexpr double traceOfAlpha = 0.05;

// The one at which a pixel is written as it is in a picture, apart from its alpha.
constexpr int pictureDepth = 24;

QRect pixelRect(const QRectF& frame) {
  return {static_cast<int>(std::lround(frame.x())), static_cast<int>(std::lround(frame.y())),
          std::max(static_cast<int>(std::ceil(frame.width())), 1),
          std::max(static_cast<int>(std::ceil(frame.height())), 1)};
}

bool screenTakesPictures() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr && screen->depth() == pictureDepth;
}

}  // namespace

X11Window::X11Window(OverlayEnvironment& environment, const OverlayWindowOptions& options)
    : environment_(environment),
      level_(options.level),
      behavior_(options.collectionBehavior),
      frame_(options.frame),
      alpha_(options.alpha, [this] { present(); }) {
  makePane();
  compositorChanges_ = environment_.compositor.observe([this] { compositorChanged(); });
  managementChanges_ = environment_.management.observe([this] { mapAnew(); });
  desktopChanges_ = environment_.desktops.observe([this] {
    if (!environment_.management.mayWaitOnDesktops()) {
      present();
    } else {
      withdrawUnlessNeeded();
    }
  });
}

X11Window::~X11Window() = default;

void X11Window::setContentView(std::unique_ptr<View> view) {
  pane_->show(nullptr);
  view_ = std::move(view);
  pane_->show(view_.get());
  applyLook();
}

void X11Window::setFrame(const Rect& frame) {
  frame_ = frame;
  // The same frame is another place when the primary screen has moved.
  if (pane_->place(place())) {
    applyLook();
    pane_->flush();
  }
}

void X11Window::setCollectionBehavior(CollectionBehavior behavior) {
  behavior_ = behavior;
  pane_->desktop().setCollectionBehavior(behavior);
}

void X11Window::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  // Where nothing is blended, a fade is but a wait for its end.
  const bool isFade = blends() && duration > Duration::zero();
  if (isComingUp()) {
    // A window manager that is busy takes a window in so late that a fade from now on could be over by then.
    alpha_.hold();
  } else if (isFade) {
    pane_->opacityWillMove(std::chrono::ceil<std::chrono::milliseconds>(duration));
  }
  using Steps = AlphaAnimation::Steps;
  alpha_.moveTo(alpha, duration, isFade ? Steps::Many : Steps::One, std::move(completion));
  if (alpha == 0.0) {
    excursion_.reset();
  }
}

void X11Window::orderFront() {
  orderedIn_ = true;
  if (pane_->desktop().joinsAllDesktops() && !excursion_) {
    excursion_.emplace(environment_.connection, environment_.desktops);
  }
  if (pane_->isVisible()) {
    pane_->raise();
    pane_->flush();
  } else {
    // The caller tells the desktop of the window after this call, in the same turn. A window that was on the screen
    // before that would flash on the active desktop.
    presentSoon_.start();
  }
}

void X11Window::orderOut() {
  orderedIn_ = false;
  excursion_.reset();
  present();
}

bool X11Window::paintsOpacity() const {
  return environment_.windowManager.traits().ignoresOpacity;
}

bool X11Window::blends() const {
  return environment_.compositor.isCompositing();
}

QRect X11Window::place() const {
  return pixelRect(environment_.screens.toQt(frame_));
}

bool X11Window::isToBeSeen() const {
  return alpha_.value() > traceOfAlpha;
}

bool X11Window::isComingUp() const {
  return pane_->isVisible() && pane_->desktop().isInFront() && !pane_->isMapped();
}

bool X11Window::isWantedOnScreen() const {
  // To take a window in costs a window manager much. One that it has, it may keep, as long as all others are told by
  // the opacity that it is not to be seen.
  //
  // GNOME's window manager on Wayland overlooks the opacity that a window has when it is mapped. One that faded out
  // while it was still being mapped would stay on the screen for good.
  const bool staysUnseen = environment_.management.mayWaitOnDesktops() && !withdrawn_ &&
                           (blends() || (pane_->isVisible() && !paintsOpacity()));
  return orderedIn_ && pane_->desktop().mayBeSeen() && (staysUnseen || isToBeSeen());
}

OverlaySurface::Depth X11Window::wantedDepth() const {
  return blends() || !screenTakesPictures() ? OverlaySurface::Depth::WithAlpha : OverlaySurface::Depth::OfScreen;
}

void X11Window::makePane() {
  depth_ = wantedDepth();
  pane_.emplace(environment_, level_, behavior_, depth_, [this] { alpha_.release(); });
  pane_->place(place());
  pane_->show(view_.get());
  applyLook();
}

void X11Window::compositorChanged() {
  if (depth_ != wantedDepth()) {
    changeDepth();
  } else {
    present();
    pane_->draw();
  }
}

void X11Window::changeDepth() {
  const std::optional<SpaceID> desktop = environment_.attachments.desktopOf(number());
  pane_.reset();
  makePane();
  if (desktop) {
    environment_.attachments.set(number(), *desktop);
  }
  present();
}

void X11Window::present() {
  withdrawUnlessNeeded();
  applyLook();
  if (!isWantedOnScreen()) {
    presentSoon_.stop();
    pane_->hide();
    alpha_.release();
  } else if (!pane_->isVisible() && !presentSoon_.isRunning()) {
    pane_->appear();
  }
  pane_->flush();
}

void X11Window::withdrawUnlessNeeded() {
  if (isToBeSeen()) {
    withdrawn_ = false;
  }
  if (!pane_->isVisible() || isToBeSeen() || pane_->desktop().isInFront()) {
    withdrawLater_.stop();
  } else if (!withdrawLater_.isRunning()) {
    withdrawLater_.start(environment_.longestUnseen);
  }
}

void X11Window::mapAnew() {
  // The window manager takes hints of a window that it does not know yet.
  pane_->hide();
  present();
}

void X11Window::applyLook() {
  pane_->setBlending({.solid = !blends(), .opacity = blends() && paintsOpacity() ? alpha_.value() : 1.0});
  pane_->setOpacity(paintsOpacity() ? 1.0 : alpha_.value());
  using Cut = OverlayPane::Cut;
  pane_->setCut(blends() ? Cut::Nothing : isToBeSeen() ? Cut::RoundCorners : Cut::Everything);
}

}  // namespace roomlattice::platform::x11

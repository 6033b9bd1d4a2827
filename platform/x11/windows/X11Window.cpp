#include "platform/x11/windows/X11Window.h"

#include "platform/x11/drawing/RoundedShape.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// Without blending, a window of no more than this alpha is not on the screen at all.
constexpr double traceOfAlpha = 0.05;

QRect pixelRect(const QRectF& frame) {
  return {static_cast<int>(std::lround(frame.x())), static_cast<int>(std::lround(frame.y())),
          std::max(static_cast<int>(std::ceil(frame.width())), 1),
          std::max(static_cast<int>(std::ceil(frame.height())), 1)};
}

}  // namespace

X11Window::X11Window(OverlayEnvironment& environment, const OverlayWindowOptions& options)
    : environment_(environment),
      frame_(options.frame),
      native_(environment.connection, surface_),
      desktop_(environment, surface_, native_, options.collectionBehavior),
      alpha_(options.alpha, [this] { present(); }),
      paintsOpacity_(environment.windowManager.traits().ignoresOpacity) {
  surface_.place(pixelRect(environment_.screens.toQt(frame_)));
  compositorChanges_ = environment_.compositor.observe([this] {
    applyBlending();
    present();
  });
  managementChanges_ = environment_.management.observe([this] { mapAnew(); });
  desktopChanges_ = environment_.desktops.observe([this] { present(); });
  environment_.stack.add(surface_, options.level);
  listen();
  applyBlending();
  applyOpacity();
}

X11Window::~X11Window() {
  picture_.reset();
  environment_.stack.remove(surface_);
}

void X11Window::setContentView(std::unique_ptr<View> view) {
  picture_.reset();
  view_ = std::move(view);
  if (view_ != nullptr) {
    picture_.emplace(*view_, surface_, native_);
    surface_.update();
  }
  applyBlending();
}

void X11Window::setFrame(const Rect& frame) {
  frame_ = frame;
  // The same frame is another place when the primary screen has moved.
  if (surface_.place(pixelRect(environment_.screens.toQt(frame_)))) {
    applyShape();
    native_.flush();
  }
}

void X11Window::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  // Where nothing is blended, a fade is but a wait for its end.
  const auto steps = environment_.compositor.isCompositing() ? AlphaAnimation::Steps::Many : AlphaAnimation::Steps::One;
  alpha_.moveTo(alpha, duration, steps, std::move(completion));
  if (alpha == 0.0) {
    excursion_.reset();
  }
}

void X11Window::orderFront() {
  orderedIn_ = true;
  if (desktop_.joinsAllDesktops() && !excursion_) {
    excursion_.emplace(environment_.connection, environment_.desktops);
  }
  if (surface_.isVisible()) {
    raise();
    native_.flush();
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

bool X11Window::isWantedOnScreen() const {
  // GNOME's window manager on Wayland overlooks the opacity that a window has when it is mapped. One that faded out
  // while it was still being mapped would stay on the screen for good.
  const bool staysUnseen = environment_.compositor.isCompositing() && environment_.management.mayWaitOnDesktops();
  return orderedIn_ && desktop_.mayBeSeen() && (staysUnseen || alpha_.value() > traceOfAlpha);
}

void X11Window::present() {
  applyOpacity();
  if (!isWantedOnScreen()) {
    presentSoon_.stop();
    surface_.hide();
  } else if (!surface_.isVisible() && !presentSoon_.isRunning()) {
    map();
  }
  native_.flush();
}

void X11Window::map() {
  const xcb_ewmh_connection_t& atoms = *environment_.connection.ewmh();
  WindowHints hints{
      .types = {atoms._NET_WM_WINDOW_TYPE_NOTIFICATION, atoms._NET_WM_WINDOW_TYPE_UTILITY},
      .states = {atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER, atoms._NET_WM_STATE_ABOVE},
      .desktop = desktop_.wantedDesktop()};
  if (hints.desktop == allDesktops) {
    hints.states.push_back(atoms._NET_WM_STATE_STICKY);
  }
  applyShape();
  native_.writeHints(hints);
  native_.refuseKeyboard();
  desktop_.windowWillAppear();
  surface_.appear();
  raise();
  environment_.management.check(native_.id());
}

void X11Window::mapAnew() {
  // The window manager takes hints of a window that it does not know yet.
  surface_.hide();
  present();
}

void X11Window::raise() {
  // Some window managers take the user to the desktop of a window that is raised.
  if (desktop_.isInFront()) {
    environment_.stack.raise(surface_);
  }
}

void X11Window::draw() {
  if (picture_ && surface_.isVisible()) {
    picture_->draw();
  }
}

void X11Window::applyBlending() {
  if (picture_) {
    const bool blends = environment_.compositor.isCompositing();
    picture_->setBlending({.solid = !blends, .opacity = blends && paintsOpacity_ ? alpha_.value() : 1.0});
  }
  applyShape();
}

void X11Window::applyOpacity() {
  if (paintsOpacity_) {
    applyBlending();
  } else if (writtenOpacity_ != alpha_.value()) {
    writtenOpacity_ = alpha_.value();
    native_.setOpacity(alpha_.value());
  }
}

void X11Window::applyShape() {
  std::vector<xcb_rectangle_t> shape;
  if (!environment_.compositor.isCompositing() && view_ != nullptr) {
    const double scale = surface_.devicePixelRatioF();
    const QSize size = (QSizeF(surface_.size()) * scale).toSize();
    shape = roundedShape(size, view_->content().cornerRadius * scale);
  }
  const auto same = [](const xcb_rectangle_t& a, const xcb_rectangle_t& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
  };
  if (std::equal(shape.begin(), shape.end(), writtenShape_.begin(), writtenShape_.end(), same)) {
    return;
  }
  shape.empty() ? native_.clearBoundingShape() : native_.setBoundingShape(shape);
  writtenShape_ = std::move(shape);
}

void X11Window::listen() {
  X11Connection& connection = environment_.connection;
  constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection.raw(), native_.id(), XCB_CW_EVENT_MASK, &events);
  connection.flush();
  reparentEvents_ = connection.observe<xcb_reparent_notify_event_t>(
      native_.id(), [this](const xcb_reparent_notify_event_t& reparent) { reparented(reparent); });
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>(
      native_.id(), [this](const xcb_property_notify_event_t& property) { propertyChanged(property); });
}

void X11Window::reparented(const xcb_reparent_notify_event_t& reparent) {
  if (reparent.parent != environment_.connection.root()) {
    native_.passClicksThrough();
  }
}

void X11Window::propertyChanged(const xcb_property_notify_event_t& property) {
  const xcb_atom_t state = environment_.connection.ewmh()->_NET_WM_STATE;
  const xcb_atom_t attention = environment_.connection.ewmh()->_NET_WM_STATE_DEMANDS_ATTENTION;
  // Some window managers mark what appears without the focus.
  if (property.atom == state && native_.hasState(attention)) {
    native_.requestNoState(attention);
  }
}

}  // namespace roomlattice::platform::x11

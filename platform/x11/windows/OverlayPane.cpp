#include "platform/x11/windows/OverlayPane.h"

#include "platform/x11/drawing/RoundedShape.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::uint32_t eventsWhileMoving = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr std::uint32_t eventsAtRest = eventsWhileMoving | XCB_EVENT_MASK_PROPERTY_CHANGE;

// Of a window manager that has been asked to show a window.
constexpr std::chrono::milliseconds forgettingTime(500);

}  // namespace

OverlayPane::OverlayPane(OverlayEnvironment& environment, WindowLevel level, CollectionBehavior behavior,
                         OverlaySurface::Depth depth, std::function<void()> mapped)
    : environment_(environment),
      surface_(depth, [this] { draw(); }),
      native_(environment.connection, surface_),
      desktop_(environment, surface_, native_, behavior) {
  environment_.stack.add(surface_, level);
  native_.deafenToolkit();
  listen(std::move(mapped));
}

OverlayPane::~OverlayPane() {
  picture_.reset();
  environment_.stack.remove(surface_);
}

void OverlayPane::show(View* view) {
  picture_.reset();
  if (view != nullptr) {
    picture_.emplace(*view, surface_, native_, environment_.glyphs);
    surface_.update();
  }
}

void OverlayPane::setBlending(const Blending& blending) {
  if (picture_) {
    picture_->setBlending(blending);
  }
}

void OverlayPane::setOpacity(double opacity) {
  if (writtenOpacity_ != opacity) {
    writtenOpacity_ = opacity;
    native_.setOpacity(opacity);
    passOpacityOn();
  }
}

void OverlayPane::opacityWillMove(std::chrono::milliseconds duration) {
  if (!listenAgainLater_.isRunning()) {
    selectEvents(eventsWhileMoving);
  }
  listenAgainLater_.start(duration);
}

void OverlayPane::opacityMoved() {
  selectEvents(eventsAtRest);
  if (surface_.isVisible() && !native_.isManaged()) {
    appearAgainLater_.start(forgettingTime);
  }
  refuseAttention();
}

OverlayPane::Shape OverlayPane::shapeOf(Cut cut) const {
  if (cut == Cut::Everything) {
    return std::vector<xcb_rectangle_t>();
  }
  if (cut == Cut::Nothing || !picture_) {
    return std::nullopt;
  }
  const double scale = surface_.devicePixelRatioF();
  return roundedShape((QSizeF(surface_.size()) * scale).toSize(), picture_->cornerRadius() * scale);
}

void OverlayPane::setCut(Cut cut) {
  Shape shape = shapeOf(cut);
  const auto same = [](const xcb_rectangle_t& a, const xcb_rectangle_t& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
  };
  if (shape.has_value() == writtenShape_.has_value() && (!shape || std::ranges::equal(*shape, *writtenShape_, same))) {
    return;
  }
  shape ? native_.setBoundingShape(*shape) : native_.clearBoundingShape();
  writtenShape_ = std::move(shape);
}

void OverlayPane::appear() {
  prepareToAppear();
  surface_.appear();
  raise();
  environment_.management.check(native_.id());
}

void OverlayPane::prepareToAppear() {
  const xcb_ewmh_connection_t& atoms = *environment_.connection.ewmh();
  WindowHints hints{
      .types = {atoms._NET_WM_WINDOW_TYPE_NOTIFICATION, atoms._NET_WM_WINDOW_TYPE_UTILITY},
      .states = {atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER, atoms._NET_WM_STATE_ABOVE},
      .desktop = desktop_.wantedDesktop()};
  if (hints.desktop == allDesktops) {
    hints.states.push_back(atoms._NET_WM_STATE_STICKY);
  }
  native_.writeHints(hints);
  native_.refuseKeyboard();
  desktop_.windowWillAppear();
}

void OverlayPane::appearAgain() {
  const bool isForgotten = surface_.isVisible() && !isMapped_ && !native_.isManaged();
  if (isForgotten) {
    prepareToAppear();
    native_.map();
  }
}

void OverlayPane::raise() {
  // Some window managers take the user to the desktop of a window that is raised.
  if (desktop_.isInFront()) {
    environment_.stack.raise(surface_);
  }
}

void OverlayPane::draw() {
  // Before the window manager has shown it, nothing would be seen; it is exposed when it is shown.
  if (picture_ && isMapped_) {
    picture_->draw();
  }
}

void OverlayPane::listen(std::function<void()> mapped) {
  X11Connection& connection = environment_.connection;
  selectEvents(eventsAtRest);
  exposeEvents_ =
      connection.observe<xcb_expose_event_t>(native_.id(), [this](const xcb_expose_event_t&) { surface_.drawSoon(); });
  configureEvents_ = connection.observe<xcb_configure_notify_event_t>(
      native_.id(), [this](const xcb_configure_notify_event_t& change) { native_.tellPlace(change); });
  mapEvents_ = connection.observe<xcb_map_notify_event_t>(
      native_.id(), [this, mapped = std::move(mapped)](const xcb_map_notify_event_t&) {
        isMapped_ = true;
        mapped();
      });
  unmapEvents_ = connection.observe<xcb_unmap_notify_event_t>(
      native_.id(), [this](const xcb_unmap_notify_event_t&) { isMapped_ = false; });
  reparentEvents_ = connection.observe<xcb_reparent_notify_event_t>(
      native_.id(), [this](const xcb_reparent_notify_event_t& reparent) { reparented(reparent); });
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>(
      native_.id(), [this](const xcb_property_notify_event_t& property) { propertyChanged(property); });
}

void OverlayPane::selectEvents(std::uint32_t eventMask) {
  X11Connection& connection = environment_.connection;
  xcb_change_window_attributes(connection.raw(), native_.id(), XCB_CW_EVENT_MASK, &eventMask);
  connection.flush();
}

void OverlayPane::reparented(const xcb_reparent_notify_event_t& reparent) {
  frame_.reset();
  if (reparent.parent != environment_.connection.root()) {
    frame_ = reparent.parent;
    passOpacityOn();
    native_.passClicksThrough();
  }
}

void OverlayPane::passOpacityOn() {
  if (frame_ && writtenOpacity_ && environment_.windowManager.traits().keepsOpacityFromFrames) {
    native_.setOpacity(*frame_, *writtenOpacity_);
  }
}

void OverlayPane::propertyChanged(const xcb_property_notify_event_t& property) {
  if (property.atom == environment_.connection.atom("WM_STATE") && property.state == XCB_PROPERTY_DELETE &&
      surface_.isVisible()) {
    // A window manager that is busy may hide what was hidden and shown again in the meantime.
    appearAgainLater_.start(forgettingTime);
  }
  if (property.atom == environment_.connection.ewmh()->_NET_WM_STATE) {
    refuseAttention();
  }
}

/// Some window managers mark what appears without the focus.
void OverlayPane::refuseAttention() {
  const xcb_atom_t attention = environment_.connection.ewmh()->_NET_WM_STATE_DEMANDS_ATTENTION;
  if (native_.hasState(attention)) {
    native_.requestNoState(attention);
  }
}

}  // namespace roomlattice::platform::x11

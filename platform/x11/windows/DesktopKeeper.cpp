#include "platform/x11/windows/DesktopKeeper.h"

#include <chrono>
#include <optional>

namespace roomlattice::platform::x11 {
namespace {

// A window manager that insists on another desktop gets its way after so many corrections in a row. One that moves the
// window only now and then is corrected each time.
constexpr int maximumDesktopCorrections = 3;
constexpr std::chrono::milliseconds restBetweenCorrections(1000);

/// One move may be told several times.
constexpr std::chrono::milliseconds correctionDelay(20);

}  // namespace

DesktopKeeper::DesktopKeeper(OverlayEnvironment& environment, const QWidget& widget, NativeWindow& window,
                             CollectionBehavior behavior)
    : environment_(environment), widget_(widget), window_(window), behavior_(behavior) {
  attachment_ = environment.attachments.observe(window.id(), [this] { attachmentChanged(); });
  propertyEvents_ = environment_.connection.observe<xcb_property_notify_event_t>(
      window.id(), [this](const xcb_property_notify_event_t& property) { propertyChanged(property); });
}

DesktopKeeper::~DesktopKeeper() {
  environment_.attachments.drop(window_.id());
}

void DesktopKeeper::setCollectionBehavior(CollectionBehavior behavior) {
  const bool before = joinsAllDesktops();
  behavior_ = behavior;
  if (widget_.isVisible() && joinsAllDesktops() != before) {
    window_.requestDesktop(wantedDesktop());
  }
}

bool DesktopKeeper::joinsAllDesktops() const {
  return contains(behavior_, CollectionBehavior::CanJoinAllSpaces);
}

std::uint32_t DesktopKeeper::wantedDesktop() const {
  return environment_.management.mayWaitOnDesktops() ? ownDesktop() : allDesktops;
}

bool DesktopKeeper::isInFront() const {
  const std::uint32_t desktop = ownDesktop();
  return desktop == allDesktops || desktop == environment_.desktops.list().current;
}

bool DesktopKeeper::mayBeSeen() const {
  return environment_.management.mayWaitOnDesktops() || isInFront();
}

std::uint32_t DesktopKeeper::ownDesktop() const {
  if (joinsAllDesktops()) {
    return allDesktops;
  }
  if (const std::optional<SpaceID> space = environment_.attachments.desktopOf(window_.id())) {
    if (const std::optional<std::size_t> index = environment_.desktops.indexOf(*space)) {
      return static_cast<std::uint32_t>(*index);
    }
  }
  return static_cast<std::uint32_t>(environment_.desktops.list().current.value_or(0));
}

void DesktopKeeper::attachmentChanged() {
  // One that is not mapped yet says where it belongs when it is.
  if (widget_.isVisible()) {
    window_.requestDesktop(wantedDesktop());
  }
}

void DesktopKeeper::windowWillAppear() {
  corrections_ = maximumDesktopCorrections;
}

void DesktopKeeper::propertyChanged(const xcb_property_notify_event_t& property) {
  if (property.atom == environment_.connection.ewmh()->_NET_WM_DESKTOP) {
    correctSoon_.start(correctionDelay);
  }
}

void DesktopKeeper::correct() {
  // Hiding a window and showing it again is one cause: the window manager may still be busy with the first when the
  // property is written for the second, clear it, and put the window on the active desktop.
  const bool attached = joinsAllDesktops() || environment_.attachments.desktopOf(window_.id()).has_value();
  if (!attached || !widget_.isVisible()) {
    return;
  }
  if (sinceCorrection_.hasExpired(restBetweenCorrections.count())) {
    corrections_ = maximumDesktopCorrections;
  }
  const std::optional<std::uint32_t> now = window_.desktop();
  if (now && *now != wantedDesktop() && corrections_ > 0) {
    sinceCorrection_.start();
    --corrections_;
    window_.requestDesktop(wantedDesktop());
  }
}

}  // namespace roomlattice::platform::x11

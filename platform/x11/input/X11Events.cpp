#include "platform/x11/input/X11Events.h"

#include "platform/DockSwipe.h"

#include <QMetaObject>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::x11 {

/// Listens from its first enabling on.
class X11Events::Tap final : public EventTap {
 public:
  Tap(X11Events& events, TapHandler handler) : events_(events), handler_(std::move(handler)) {}

  void enable() override {
    if (!listener_) {
      listener_ = events_.taps_.add(handler_);
      events_.followSwipes();
    }
  }

 private:
  X11Events& events_;
  TapHandler handler_;
  Registration listener_;
};

X11Events::X11Events(X11Connection& connection, X11Desktops& desktops, const X11Screens& screens)
    : desktops_(desktops), input_(connection), pointer_(connection, input_, screens) {}

X11Events::~X11Events() = default;

std::unique_ptr<Event> X11Events::createEvent() {
  return std::make_unique<FieldEvent>();
}

void X11Events::post(const Event& event) {
  // Nothing slides here that a swipe could take back, so a swipe is as good as done when it begins.
  if (const auto swipe = DockSwipe::read(event); swipe && swipe->phase == DockSwipe::Began) {
    desktops_.step(swipe->direction());
  }
  FieldEvent posted(event);
  posted.setInteger(EventField::SourceProcessID, getpid());
  QMetaObject::invokeMethod(
      &context_, [this, posted] { pass(posted); }, Qt::QueuedConnection);
}

void X11Events::pass(const FieldEvent& event) {
  taps_.notify(event, static_cast<std::uint32_t>(event.integer(EventField::Kind)));
}

std::unique_ptr<EventTap> X11Events::createTap(TapHandler handler) {
  return std::make_unique<Tap>(*this, std::move(handler));
}

void X11Events::followSwipes() {
  if (!swipes_ && input_.hasGestures()) {
    swipes_.emplace(input_, [this](const FieldEvent& event) { pass(event); });
  }
}

Registration X11Events::monitorGlobalMouseMoved(std::function<void()> handler) {
  return pointer_.observe(std::move(handler));
}

Registration X11Events::monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) {
  return keys_.observe(std::move(handler));
}

}  // namespace roomlattice::platform::x11

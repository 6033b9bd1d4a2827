#pragma once

#include "platform/Events.h"
#include "platform/x11/connection/XInput.h"
#include "platform/x11/desktops/X11Desktops.h"
#include "platform/x11/input/KeyMonitor.h"
#include "platform/x11/input/PointerMonitor.h"
#include "platform/x11/input/SwipeListener.h"

#include <memory>
#include <optional>

namespace roomlattice::platform::x11 {

/// The event stream as far as X11 has one: the user's touchpad swipes and the swipes this program posts. Each swipe
/// that is posted switches by one desktop as soon as it begins; those of the user are only listened to, since what they
/// do is for the desktop's own gestures to say. X11 asks for no permission.
class X11Events final : public Events {
 public:
  X11Events(X11Connection& connection, X11Desktops& desktops, const X11Screens& screens);
  ~X11Events() override;

  std::unique_ptr<Event> createEvent() override;
  void post(const Event& event) override;
  std::unique_ptr<EventTap> createTap(TapHandler handler) override;
  Registration monitorGlobalMouseMoved(std::function<void()> handler) override;
  Registration monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) override;
  Point mouseLocation() const override { return pointer_.location(); }

 private:
  class Tap;

  void pass(const FieldEvent& event);
  void followSwipes();

  X11Desktops& desktops_;
  XInput input_;
  PointerMonitor pointer_;
  KeyMonitor keys_;
  Listeners<const Event&, std::uint32_t> taps_;
  // While there is a tap to hear them.
  std::optional<SwipeListener> swipes_;
  // What is queued in the event loop goes with it, before anything it uses.
  QObject context_;
};

}  // namespace roomlattice::platform::x11

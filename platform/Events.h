#pragma once

#include "platform/Geometry.h"
#include "platform/Registration.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace roomlattice::platform {

/// The window server's numbers of the event fields that the program reads and writes.
enum class EventField : std::uint32_t {
  SourceProcessID = 41,
  Kind = 55,
  GestureKind = 110,
  SwipeAxis = 123,
  Progress = 124,
  Velocity = 129,
  SecondaryVelocity = 130,
  Phase = 132,
};

/// One event of the session's event stream, as numbered fields. A field that was never set reads as 0.
class Event {
 public:
  virtual ~Event() = default;

  virtual std::int64_t integer(EventField field) const = 0;
  virtual double real(EventField field) const = 0;
  virtual void setInteger(EventField field, std::int64_t value) = 0;
  virtual void setReal(EventField field, double value) = 0;
};

/// What a tap is called with besides ordinary events' types.
namespace tapEvent {
inline constexpr std::uint32_t disabledByTimeout = 0xFFFFFFFE;
inline constexpr std::uint32_t disabledByUserInput = 0xFFFFFFFF;
}  // namespace tapEvent

/// A listening place in the event stream; the tap ends with this object.
class EventTap {
 public:
  virtual ~EventTap() = default;

  /// Lets events come (again). A new tap is disabled, and the system may disable one that is slow.
  virtual void enable() = 0;
};

/// A key press before the focused control has seen it.
class KeyEvent {
 public:
  virtual ~KeyEvent() = default;

  /// The virtual key code; see keyCode.
  virtual std::uint16_t code() const = 0;
};

namespace keyCode {
inline constexpr std::uint16_t returnKey = 36;
inline constexpr std::uint16_t escape = 53;
inline constexpr std::uint16_t keypadEnter = 76;
}  // namespace keyCode

enum class KeyDisposition { PassOn, Swallow };

/// The session's stream of input events: posting into it and listening to it.
class Events {
 public:
  /// Called for every event of every type while the tap is enabled, and with the two types of tapEvent, whose event
  /// has no fields. The event is on loan for the call.
  using TapHandler = std::function<void(const Event& event, std::uint32_t type)>;

  virtual ~Events() = default;

  /// An event without source or fields; nothing when the system will not make one.
  virtual std::unique_ptr<Event> createEvent() = 0;

  /// Posts `event` at the session's tap location. Without the user's permission the system drops it in silence.
  virtual void post(const Event& event) = 0;

  /// A listen-only tap at the head of the session's tap location, served by the main run loop in all its common modes.
  /// Nothing without the user's permission. `handler` may be called once the tap has been enabled.
  virtual std::unique_ptr<EventTap> createTap(TapHandler handler) = 0;

  /// Calls `handler` after each pointer move over other applications' windows. Empty when the system gives no monitor.
  virtual Registration monitorGlobalMouseMoved(std::function<void()> handler) = 0;

  /// Calls `handler` for each key press sent to this application, also while one of its menus is open.
  virtual Registration monitorLocalKeyDown(std::function<KeyDisposition(const KeyEvent&)> handler) = 0;

  /// Where the pointer is, in screen coordinates.
  virtual Point mouseLocation() const = 0;
};

}  // namespace roomlattice::platform

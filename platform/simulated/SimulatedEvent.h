#pragma once

#include "platform/Events.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <variant>

namespace roomlattice::platform::simulated {

/// The event types of the stream, which stand in EventField::Kind too. Public numbers of Quartz event services; that of
/// gestures is the window server's own.
namespace eventType {
inline constexpr std::int64_t mouseMoved = 5;
inline constexpr std::int64_t keyDown = 10;
inline constexpr std::int64_t dockGesture = 30;
}  // namespace eventType

/// EventField::GestureKind of a swipe between desktops.
inline constexpr std::int64_t dockSwipe = 23;

/// EventField::SwipeAxis of such a swipe.
inline constexpr std::int64_t horizontalAxis = 1;

/// EventField::Phase.
enum class SwipePhase : std::int64_t { Began = 1, Changed = 2, Ended = 4, Cancelled = 8 };

/// A copyable event. A field set as one kind of number and read as the other is converted, integers by truncation.
class SimulatedEvent final : public Event {
 public:
  SimulatedEvent() = default;
  /// A copy of any event, through the fields EventField names.
  explicit SimulatedEvent(const Event& other);

  std::int64_t integer(EventField field) const override;
  double real(EventField field) const override;
  void setInteger(EventField field, std::int64_t value) override;
  void setReal(EventField field, double value) override;

  bool operator==(const SimulatedEvent& other) const { return fields_ == other.fields_; }

 private:
  std::map<EventField, std::variant<std::int64_t, double>> fields_;
};

enum class KeyModifier { None, Command };

/// A key press with the text it types.
class SimulatedKeyEvent final : public KeyEvent {
 public:
  explicit SimulatedKeyEvent(std::uint16_t code, std::string text = {}, KeyModifier modifier = KeyModifier::None)
      : code_(code), text_(std::move(text)), modifier_(modifier) {}

  std::uint16_t code() const override { return code_; }
  const std::string& text() const { return text_; }
  KeyModifier modifier() const { return modifier_; }

 private:
  std::uint16_t code_;
  std::string text_;
  KeyModifier modifier_;
};

/// Virtual key codes beyond those of keyCode.
namespace simulatedKeyCode {
inline constexpr std::uint16_t deleteBackward = 51;
/// Of every key that types text: which letter stands where is the keyboard layout's affair.
inline constexpr std::uint16_t text = 0;
}  // namespace simulatedKeyCode

}  // namespace roomlattice::platform::simulated

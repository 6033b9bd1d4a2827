#pragma once

#include "platform/Events.h"

#include <cstdint>
#include <string>
#include <utility>

namespace roomlattice::platform::simulated {

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

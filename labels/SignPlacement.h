#pragma once

#include "platform/UserInterface.h"

#include <string>

namespace roomlattice {

/// The screen that labels and the tour's overlay are centred on: the main one or else the first. Having no screen at
/// all stops the program.
platform::Screen signScreen(const platform::UserInterface& userInterface);

/// Where labels with texts in this font are, as things are now.
class SignPlacement {
 public:
  SignPlacement(const platform::UserInterface& userInterface, const platform::Font& font)
      : userInterface_(userInterface), font_(font), screen_(signScreen(userInterface).frame) {}

  /// The frame of a label with this text, in screen coordinates: centred on that screen.
  platform::Rect frameOf(const std::string& text) const;

 private:
  const platform::UserInterface& userInterface_;
  platform::Font font_;
  platform::Rect screen_;
};

}  // namespace roomlattice

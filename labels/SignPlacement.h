#pragma once

#include "platform/UserInterface.h"

#include <string>

namespace roomlattice {

/// The screen that labels and the tour's overlay are centred on: the main one or else the first. Having no screen at
/// all stops the program.
platform::Screen signScreen(const platform::UserInterface& userInterface);

/// The frame of a label with this text in this font, in screen coordinates: centred on that screen.
platform::Rect signFrame(const platform::UserInterface& userInterface, const std::string& text,
                         const platform::Font& font);

}  // namespace roomlattice

#pragma once

#include "platform/UserInterface.h"

namespace roomlattice {

/// The screen that labels and the tour's overlay are centred on: the main one or else the first. Having no screen at
/// all stops the program.
platform::Screen labelScreen(const platform::UserInterface& userInterface);

}  // namespace roomlattice

#pragma once

#include "platform/UserInterface.h"

#include <memory>

namespace roomlattice {

/// What says, over everything else, that a tour is under way. It fades in and out.
class TourOverlay {
 public:
  explicit TourOverlay(platform::UserInterface& userInterface) : userInterface_(userInterface) {}

  /// Does nothing while the overlay is there.
  void show();

  /// Does nothing while there is none. The fading window is gone from the screen at the end of its fade.
  void hide();

 private:
  platform::UserInterface& userInterface_;
  std::shared_ptr<platform::Window> window_;
};

}  // namespace roomlattice

#pragma once

#include "platform/UserInterface.h"

namespace roomlattice {

/// The content of the tour's overlay: a dark capsule with a spinner and a line of text.
class TourOverlayView final : public platform::View {
 public:
  TourOverlayView(const platform::UserInterface& userInterface, const platform::Rect& frame);

  platform::ViewContent content() const override;

 private:
  const platform::UserInterface& userInterface_;
};

}  // namespace roomlattice

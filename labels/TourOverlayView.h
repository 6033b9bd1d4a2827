#pragma once

#include "platform/Platform.h"

namespace roomlattice {

/// The content of the tour's overlay: a dark capsule with a spinner and a line of text. Main thread only.
class TourOverlayView final : public platform::View {
 public:
  TourOverlayView(platform::Platform& platform, const platform::Rect& frame);

  platform::ViewContent content() const override;

 private:
  platform::Platform& platform_;
};

}  // namespace roomlattice

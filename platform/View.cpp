#include "platform/View.h"

namespace roomlattice::platform {

void View::setFrame(const Rect& frame) {
  if (frame != frame_) {
    frame_ = frame;
    contentChanged();
  }
}

void View::setHost(ViewHost* host) {
  const bool ended = host_ != nullptr && host == nullptr;
  host_ = host;
  if (ended) {
    hostingEnded();
  }
}

HitTarget View::hitTest(Point point) const {
  const Rect bounds{{}, frame_.size};
  return bounds.contains(point) ? HitTarget::View : HitTarget::None;
}

void View::mouseUp(Point) {}

CommandDisposition View::doCommand(EditCommand) {
  return CommandDisposition::NotHandled;
}

void View::contentChanged() {
  if (host_ != nullptr) {
    host_->viewChanged();
  }
}

}  // namespace roomlattice::platform

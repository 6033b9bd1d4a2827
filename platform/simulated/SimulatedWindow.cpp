#include "platform/simulated/SimulatedWindow.h"

#include <utility>
#include <variant>

namespace roomlattice::platform::simulated {

SimulatedWindow::SimulatedWindow(const OverlayWindowOptions& options, const VirtualTime& time,
                                 SimulatedDispatcher& dispatcher, const SpaceList& spaces, WindowList& windows)
    : time_(time),
      dispatcher_(dispatcher),
      spaceList_(spaces),
      windows_(windows),
      number_(windows.makeNumber()),
      level_(options.level),
      collectionBehavior_(options.collectionBehavior),
      frame_(options.frame),
      alpha_(options.alpha),
      registration_(windows.add(*this, number_, level_)) {}

void SimulatedWindow::setContentView(std::unique_ptr<View> view) {
  hosted_.reset();
  view_ = std::move(view);
  if (view_ != nullptr) {
    hosted_.emplace(*view_, static_cast<ViewSurroundings&>(*this));
  }
  contentWritten();
}

void SimulatedWindow::setFrame(const Rect& frame) {
  ++writes_.frame;
  frame_ = frame;
}

void SimulatedWindow::setCollectionBehavior(CollectionBehavior behavior) {
  ++writes_.collectionBehavior;
  collectionBehavior_ = behavior;
}

double SimulatedWindow::alpha() const {
  if (!animation_) {
    return alpha_;
  }
  const Duration elapsed = time_.now() - animation_->start;
  if (elapsed >= animation_->duration) {
    return animation_->to;
  }
  const double part = static_cast<double>(elapsed.count()) / static_cast<double>(animation_->duration.count());
  return animation_->from + (animation_->to - animation_->from) * part;
}

void SimulatedWindow::setAlpha(double alpha) {
  ++writes_.alpha;
  alpha_ = alpha;
  // The completion that goes with the animation may own whatever it likes: it goes last.
  const auto ended = std::exchange(animation_, std::nullopt);
}

void SimulatedWindow::animateAlpha(double alpha, Duration duration, std::function<void()> completion) {
  ++writes_.alpha;
  Animation next{.from = this->alpha(), .to = alpha, .start = time_.now(), .duration = duration};
  const auto replaced = std::exchange(animation_, std::nullopt);
  alpha_ = alpha;
  if (duration <= Duration::zero()) {
    dispatcher_.async(std::move(completion));
    return;
  }
  next.end = dispatcher_.schedule(duration, [this, completion = std::move(completion)] {
    const auto done = std::exchange(animation_, std::nullopt);
    completion();
  });
  animation_ = std::move(next);
}

void SimulatedWindow::orderFront() {
  orderedIn_ = true;
  windows_.bringToFront(number_);
  const SpaceID active = spaceList_.activeSpace();
  if (attachedTo_.empty() && active != 0 && !contains(collectionBehavior_, CollectionBehavior::CanJoinAllSpaces)) {
    attach(active);
  }
}

void SimulatedWindow::orderOut() {
  orderedIn_ = false;
}

bool SimulatedWindow::isOn(SpaceID space) const {
  return orderedIn_ &&
         (contains(collectionBehavior_, CollectionBehavior::CanJoinAllSpaces) || attachedTo_.contains(space));
}

std::vector<std::string> SimulatedWindow::texts() const {
  std::vector<std::string> texts;
  if (view_ == nullptr) {
    return texts;
  }
  for (const ViewElement& element : view_->content().elements) {
    if (const auto* text = std::get_if<TextElement>(&element.kind); text != nullptr && !element.hidden) {
      texts.push_back(text->text);
    }
  }
  return texts;
}

}  // namespace roomlattice::platform::simulated

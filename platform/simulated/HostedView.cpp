#include "platform/simulated/HostedView.h"

#include "support/Fatal.h"

#include <algorithm>
#include <iterator>
#include <variant>

namespace roomlattice::platform::simulated {
namespace {

std::vector<std::size_t> kindsOf(const ViewContent& content) {
  std::vector<std::size_t> kinds;
  std::ranges::transform(content.elements, std::back_inserter(kinds),
                         [](const ViewElement& element) { return element.kind.index(); });
  return kinds;
}

const ViewElement* fieldOf(const ViewContent& content) {
  for (const ViewElement& element : content.elements) {
    if (std::holds_alternative<TextFieldElement>(element.kind)) {
      return &element;
    }
  }
  return nullptr;
}

}  // namespace

HostedView::HostedView(View& view, ViewSurroundings& surroundings) : view_(view), surroundings_(surroundings) {
  const ViewContent content = view.content();
  kinds_ = kindsOf(content);
  if (fieldOf(content) != nullptr) {
    textField_.emplace(view, surroundings.fieldFocus());
  }
  view.setHost(this);
}

HostedView::~HostedView() {
  view_.setHost(nullptr);
}

void HostedView::viewChanged() {
  const ViewContent content = view_.content();
  // The other backends keep a control per place and would show the wrong one.
  if (kindsOf(content) != kinds_) {
    fatal("a view changed the number or the kinds of its elements");
  }
  const ViewElement* const field = fieldOf(content);
  if (field != nullptr && field->hidden) {
    textField_->endEditing();
  }
  surroundings_.contentWritten();
}

SimulatedTextField* HostedView::textField() {
  return textField_ ? &*textField_ : nullptr;
}

void HostedView::cancelMenuTracking() {
  // Ends this object where it succeeds.
  surroundings_.cancelMenuTracking();
}

void HostedView::click(Point point) {
  switch (view_.hitTest(point)) {
    case HitTarget::None:
      break;
    case HitTarget::View:
      view_.mouseUp(point);
      break;
    case HitTarget::Button:
      view_.buttonClicked();
      break;
    case HitTarget::TextField:
      if (textField_) {
        textField_->focus();
      }
      break;
  }
}

}  // namespace roomlattice::platform::simulated

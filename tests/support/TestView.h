#pragma once

#include "platform/View.h"

#include <functional>
#include <vector>

namespace roomlattice::tests {

/// A row with a text, a button and a text field, each over a third of its 300 × 30 points, that keeps what it was told.
class TestView : public platform::View {
 public:
  TestView() { setFrame({{}, {300.0, 30.0}}); }

  platform::ViewContent content() const override {
    return {.elements = {
                {.frame = {{0.0, 0.0}, {100.0, 30.0}}, .kind = platform::TextElement{.text = "Row"}},
                {.frame = {{100.0, 0.0}, {100.0, 30.0}}, .hidden = buttonHidden, .kind = platform::ButtonElement()},
                {.frame = {{200.0, 0.0}, {100.0, 30.0}}, .hidden = fieldHidden, .kind = platform::TextFieldElement()}}};
  }

  platform::HitTarget hitTest(platform::Point point) const override {
    if (View::hitTest(point) == platform::HitTarget::None) {
      return platform::HitTarget::None;
    }
    if (point.x < 100.0) {
      return platform::HitTarget::View;
    }
    return point.x < 200.0 ? platform::HitTarget::Button : platform::HitTarget::TextField;
  }

  void mouseEntered() override { hovered = true; }
  void mouseExited() override { hovered = false; }
  void mouseUp(platform::Point point) override {
    clicks.push_back(point);
    if (onMouseUp) {
      onMouseUp();
    }
  }
  void buttonClicked() override { ++buttonClicks; }
  platform::CommandDisposition doCommand(platform::EditCommand command) override {
    commands.push_back(command);
    return platform::CommandDisposition::Handled;
  }

  void hideField() {
    fieldHidden = true;
    contentChanged();
  }

  bool buttonHidden = false;
  bool fieldHidden = false;
  bool hovered = false;
  int buttonClicks = 0;
  std::vector<platform::Point> clicks;
  std::vector<platform::EditCommand> commands;
  std::function<void()> onMouseUp;
};

}  // namespace roomlattice::tests

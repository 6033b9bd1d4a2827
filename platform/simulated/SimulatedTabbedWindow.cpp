#include "platform/simulated/SimulatedTabbedWindow.h"

#include "support/Fatal.h"

#include <algorithm>

namespace roomlattice::platform::simulated {
namespace {

std::string_view nameOf(const PlacedControl& placed) {
  if (const auto* const box = std::get_if<CheckBoxControl>(&placed.control)) {
    return box->title;
  }
  if (const auto* const button = std::get_if<PushButtonControl>(&placed.control)) {
    return button->title;
  }
  return placed.accessibilityLabel;
}

bool isLabel(const Control& control, std::string_view text) {
  const auto* const label = std::get_if<LabelControl>(&control);
  return label != nullptr && label->text == text;
}

}  // namespace

SimulatedTabbedWindow::SimulatedTabbedWindow(TabbedWindowModel model, const Rect& frame, WindowList& windows)
    : model_(std::move(model)), frame_(frame), registration_(windows.add(*this)) {}

void SimulatedTabbedWindow::show() {
  visible_ = true;
}

void SimulatedTabbedWindow::setText(ControlReference label, const std::string& text) {
  edit<LabelControl>(label).text = text;
}

void SimulatedTabbedWindow::setEnabled(ControlReference button, bool enabled) {
  edit<PushButtonControl>(button);
  if (enabled) {
    disabled_.erase({button.page, button.control});
  } else {
    disabled_.insert({button.page, button.control});
  }
}

std::optional<ControlReference> SimulatedTabbedWindow::find(std::string_view text) const {
  std::optional<ControlReference> inRow;
  for (std::size_t page = 0; page < model_.pages.size(); ++page) {
    const std::vector<PlacedControl>& controls = model_.pages[page].controls;
    for (std::size_t index = 0; index < controls.size(); ++index) {
      if (!text.empty() && nameOf(controls[index]) == text) {
        return ControlReference{page, index};
      }
      if (!inRow && isLabel(controls[index].control, text) && index + 1 < controls.size()) {
        inRow = ControlReference{page, index + 1};
      }
    }
  }
  return inRow;
}

void SimulatedTabbedWindow::slide(ControlReference slider, double value) {
  auto& control = edit<SliderControl>(slider);
  control.value = std::clamp(value, control.minimum, control.maximum);
  control.action(control.value);
}

void SimulatedTabbedWindow::toggle(ControlReference checkBox) {
  check(checkBox, control<CheckBoxControl>(checkBox).state == CheckState::On ? CheckState::Off : CheckState::On);
}

void SimulatedTabbedWindow::check(ControlReference checkBox, CheckState state) {
  auto& control = edit<CheckBoxControl>(checkBox);
  control.state = state;
  control.action(state);
}

void SimulatedTabbedWindow::choose(ControlReference popUp, int index) {
  auto& control = edit<PopUpControl>(popUp);
  control.selectedIndex = index;
  control.action(index);
}

void SimulatedTabbedWindow::pickColor(ControlReference colorWell, const Color& color) {
  auto& control = edit<ColorWellControl>(colorWell);
  control.color = color;
  control.action(control.tag, color);
}

void SimulatedTabbedWindow::push(ControlReference button) {
  const auto& control = edit<PushButtonControl>(button);
  if (isEnabled(button)) {
    control.action();
  }
}

void SimulatedTabbedWindow::noSuchControl() {
  fatal("the window has no control of that kind there");
}

const Control& SimulatedTabbedWindow::at(ControlReference reference) const {
  if (reference.page >= model_.pages.size() || reference.control >= model_.pages[reference.page].controls.size()) {
    noSuchControl();
  }
  return model_.pages[reference.page].controls[reference.control].control;
}

}  // namespace roomlattice::platform::simulated

#include "platform/simulated/SimulatedTextField.h"

#include "platform/simulated/SimulatedKeyEvent.h"
#include "platform/simulated/TextMetrics.h"

#include <utility>

namespace roomlattice::platform::simulated {

void SimulatedTextField::setText(const std::string& text) {
  text_ = text;
  allSelected_ = false;
}

void SimulatedTextField::focusAndSelectAll() {
  focus();
  allSelected_ = editing_;
}

void SimulatedTextField::focus() {
  if (!editing_) {
    editing_ = focus_.moveTo(*this);
  }
  allSelected_ = false;
}

void SimulatedTextField::endEditing() {
  editing_ = false;
  allSelected_ = false;
}

bool SimulatedTextField::interpret(const KeyEvent& event) {
  if (!editing_) {
    return false;
  }
  switch (event.code()) {
    case keyCode::returnKey:
    case keyCode::keypadEnter:
      view_.doCommand(EditCommand::InsertNewline);
      break;
    case keyCode::escape:
      view_.doCommand(EditCommand::Cancel);
      break;
    case simulatedKeyCode::deleteBackward:
      deleteBackward();
      break;
    default:
      if (const auto* typed = dynamic_cast<const SimulatedKeyEvent*>(&event);
          typed != nullptr && typed->modifier() == KeyModifier::None) {
        insert(typed->text());
      }
  }
  return true;
}

void SimulatedTextField::deleteBackward() {
  text_.resize(std::exchange(allSelected_, false) ? 0 : startOfLastCharacter(text_));
}

void SimulatedTextField::insert(const std::string& text) {
  if (!text.empty()) {
    text_ = std::exchange(allSelected_, false) ? text : text_ + text;
  }
}

}  // namespace roomlattice::platform::simulated

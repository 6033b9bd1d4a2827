#include "platform/simulated/SimulatedTextField.h"

#include "platform/simulated/SimulatedKeyEvent.h"
#include "tests/support/TestView.h"

#include <gtest/gtest.h>

#include <vector>

namespace roomlattice::tests {
namespace {

using platform::EditCommand;
using platform::simulated::KeyModifier;
using platform::simulated::SimulatedKeyEvent;

namespace keys = platform::simulated::simulatedKeyCode;

class SimulatedTextFieldTest : public ::testing::Test, private platform::simulated::FieldFocus {
 protected:
  bool press(std::uint16_t code) { return field_.interpret(SimulatedKeyEvent(code)); }
  bool type(const char* text) { return field_.interpret(SimulatedKeyEvent(keys::text, text)); }

  TestView view_;
  bool keyboardGiven_ = true;
  platform::simulated::SimulatedTextField field_{view_, *this};

 private:
  bool moveTo(platform::simulated::SimulatedTextField&) override { return keyboardGiven_; }
};

TEST_F(SimulatedTextFieldTest, InterpretsNothingUntilItIsEdited) {
  EXPECT_FALSE(type("a"));
  EXPECT_FALSE(press(platform::keyCode::returnKey));
  EXPECT_EQ(field_.text(), "");
  EXPECT_TRUE(view_.commands.empty());
}

TEST_F(SimulatedTextFieldTest, ReplacesTheSelectedTextByWhatIsTyped) {
  field_.setText("Work");
  field_.focusAndSelectAll();
  EXPECT_TRUE(field_.isAllSelected());
  type("M");
  type("a");
  EXPECT_EQ(field_.text(), "Ma");
}

TEST_F(SimulatedTextFieldTest, AddsWhatIsTypedAtTheEnd) {
  field_.setText("Wor");
  field_.focus();
  type("k");
  EXPECT_EQ(field_.text(), "Work");
}

TEST_F(SimulatedTextFieldTest, DeletesTheSelectedTextOrTheLastCharacter) {
  field_.setText("Work");
  field_.focusAndSelectAll();
  press(keys::deleteBackward);
  EXPECT_EQ(field_.text(), "");
  press(keys::deleteBackward);
  EXPECT_EQ(field_.text(), "");
  type("a");
  type("ß");
  press(keys::deleteBackward);
  EXPECT_EQ(field_.text(), "a");
}

TEST_F(SimulatedTextFieldTest, LeavesItsCommandsToTheView) {
  field_.focus();
  EXPECT_TRUE(press(platform::keyCode::returnKey));
  EXPECT_TRUE(press(platform::keyCode::keypadEnter));
  EXPECT_TRUE(press(platform::keyCode::escape));
  EXPECT_EQ(view_.commands, (std::vector{EditCommand::InsertNewline, EditCommand::InsertNewline, EditCommand::Cancel}));
  EXPECT_EQ(field_.text(), "");
}

TEST_F(SimulatedTextFieldTest, TypesNothingForACommandKey) {
  field_.setText("Work");
  field_.focusAndSelectAll();
  EXPECT_TRUE(field_.interpret(SimulatedKeyEvent(keys::text, "q", KeyModifier::Command)));
  EXPECT_EQ(field_.text(), "Work");
}

TEST_F(SimulatedTextFieldTest, IsNotEditedWithoutTheKeyboard) {
  keyboardGiven_ = false;
  field_.focusAndSelectAll();
  EXPECT_FALSE(field_.isEditing());
  EXPECT_FALSE(field_.isAllSelected());
}

TEST_F(SimulatedTextFieldTest, KeepsItsTextWhenEditingEnds) {
  field_.focus();
  type("a");
  field_.endEditing();
  EXPECT_FALSE(type("b"));
  EXPECT_EQ(field_.text(), "a");
}

}  // namespace
}  // namespace roomlattice::tests

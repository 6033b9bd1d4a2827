#pragma once

#include "platform/View.h"

#include <string>

namespace roomlattice::platform::simulated {

class SimulatedTextField;

/// Where the keyboard goes in what hosts a field: to one field at a time.
class FieldFocus {
 public:
  virtual ~FieldFocus() = default;

  /// The field wants the keyboard; the one that had it has lost it on return. False where none gets it.
  virtual bool moveTo(SimulatedTextField& field) = 0;
};

/// A text field without a cursor: while it is edited, text is typed at its end, or in place of all when all is
/// selected.
class SimulatedTextField final : public TextField {
 public:
  /// `view` decides on the editor's commands; both outlive the field.
  SimulatedTextField(View& view, FieldFocus& focus) : view_(view), focus_(focus) {}

  std::string text() const override { return text_; }
  void setText(const std::string& text) override;
  void focusAndSelectAll() override;

  /// Return and keypad Enter are EditCommand::InsertNewline, Escape is EditCommand::Cancel; the delete key removes the
  /// last character; what else types text, types it.
  bool interpret(const KeyEvent& event) override;

  bool isEditing() const { return editing_; }
  bool isAllSelected() const { return allSelected_; }

  /// Gives the field the keyboard as a click does, with nothing selected.
  void focus();

  void endEditing();

 private:
  void deleteBackward();
  void insert(const std::string& text);

  View& view_;
  FieldFocus& focus_;
  std::string text_;
  bool editing_ = false;
  bool allSelected_ = false;
};

}  // namespace roomlattice::platform::simulated

#pragma once

#include "platform/View.h"

#include <QLineEdit>

namespace roomlattice::platform::x11 {

/// The text field of a view. What ends an edit is asked of the view first, and keys that would leave the field, or work
/// the menu around it, stay in it.
class X11TextField final : public QLineEdit, public TextField {
 public:
  /// The view must outlive it.
  X11TextField(View& view, QWidget* parent);

  void show(const TextFieldElement& element, bool hidden);

  std::string text() const override;
  void setText(const std::string& text) override;
  void focusAndSelectAll() override;
  bool interpret(const KeyEvent& event) override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  View& view_;
};

}  // namespace roomlattice::platform::x11

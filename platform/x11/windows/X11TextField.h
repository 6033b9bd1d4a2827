#pragma once

#include "platform/View.h"

#include <QLineEdit>
#include <functional>

namespace roomlattice::platform::x11 {

/// The text field of a view. Keys that would leave the field, or work the menu around it, stay in it.
class X11TextField final : public QLineEdit, public TextField {
 public:
  explicit X11TextField(QWidget* parent);

  /// Called for the keys that end an edit; the field itself does nothing about them. Never empty.
  std::function<void(EditCommand command)> onCommand = [](EditCommand) {};

  std::string text() const override;
  void setText(const std::string& text) override;
  void focusAndSelectAll() override;
  bool interpret(const KeyEvent& event) override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace roomlattice::platform::x11

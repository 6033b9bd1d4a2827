#include "platform/x11/windows/X11TextField.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/input/X11KeyEvent.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <memory>

namespace roomlattice::platform::x11 {
namespace {

/// Keys with which a menu, or the toolkit, would take the focus elsewhere.
bool leavesField(int key) {
  return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Up || key == Qt::Key_Down;
}

}  // namespace

X11TextField::X11TextField(QWidget* parent) : QLineEdit(parent) {
  setContextMenuPolicy(Qt::NoContextMenu);
}

std::string X11TextField::text() const {
  return QLineEdit::text().toStdString();
}

void X11TextField::setText(const std::string& text) {
  QLineEdit::setText(toQt(text));
}

void X11TextField::focusAndSelectAll() {
  if (isVisible()) {
    setFocus(Qt::OtherFocusReason);
    selectAll();
  }
}

bool X11TextField::interpret(const KeyEvent& event) {
  const auto* key = dynamic_cast<const X11KeyEvent*>(&event);
  if (key == nullptr || !hasFocus()) {
    return false;
  }
  const std::unique_ptr<QKeyEvent> copy(key->event().clone());
  QCoreApplication::sendEvent(this, copy.get());
  return true;
}

bool X11TextField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  // The toolkit moves the focus with Tab before a key press is offered to the widget.
  if (event->type() == QEvent::KeyPress && leavesField(static_cast<QKeyEvent*>(event)->key())) {
    return true;
  }
  return QLineEdit::event(event);
}

void X11TextField::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool ends = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (ends || key == Qt::Key_Escape) {
    event->accept();
    onCommand(ends ? EditCommand::InsertNewline : EditCommand::Cancel);
    return;
  }
  QLineEdit::keyPressEvent(event);
  event->accept();
}

}  // namespace roomlattice::platform::x11

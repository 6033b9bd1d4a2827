#include "platform/x11/input/KeyMonitor.h"

#include "platform/x11/input/X11KeyEvent.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>
#include <utility>

namespace roomlattice::platform::x11 {

Registration KeyMonitor::observe(Handler handler) {
  if (!std::exchange(installed_, true)) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  return listeners_.add([handler = std::move(handler)](const KeyEvent& event, KeyDisposition& disposition) {
    if (disposition == KeyDisposition::PassOn) {
      disposition = handler(event);
    }
  });
}

bool KeyMonitor::eventFilter(QObject* receiver, QEvent* event) {
  // A press passes here on its way into the window, and once more on its way to the widget with the focus: only the
  // first time it is news.
  if (event->type() != QEvent::KeyPress || qobject_cast<QWindow*>(receiver) == nullptr || listeners_.empty()) {
    return false;
  }
  KeyDisposition disposition = KeyDisposition::PassOn;
  listeners_.notify(X11KeyEvent(static_cast<const QKeyEvent&>(*event)), disposition);
  return disposition == KeyDisposition::Swallow;
}

}  // namespace roomlattice::platform::x11

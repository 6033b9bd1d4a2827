#include "platform/x11/statusitem/MenuKeepingApplication.h"

#include <QEvent>

namespace roomlattice::platform::x11 {

bool MenuKeepingApplication::notify(QObject* receiver, QEvent* event) {
  const bool goesInactive =
      receiver == this && applicationState() != Qt::ApplicationActive &&
      (event->type() == QEvent::ApplicationDeactivate || event->type() == QEvent::ApplicationStateChange);
  if (goesInactive && activePopupWidget() != nullptr) {
    return true;
  }
  return QApplication::notify(receiver, event);
}

}  // namespace roomlattice::platform::x11

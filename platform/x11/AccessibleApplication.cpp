#include "platform/x11/AccessibleApplication.h"

#include <QApplication>
#include <QMenu>

namespace roomlattice::platform::x11 {
namespace {

QAccessibleInterface* openMenu() {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  return menu == nullptr || menu->parentWidget() != nullptr ? nullptr : QAccessible::queryAccessibleInterface(menu);
}

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  return object != nullptr && object == qApp ? new AccessibleApplication : nullptr;
}

}  // namespace

int AccessibleApplication::childCount() const {
  return QAccessibleApplication::childCount() + (openMenu() == nullptr ? 0 : 1);
}

QAccessibleInterface* AccessibleApplication::child(int index) const {
  return index == QAccessibleApplication::childCount() ? openMenu() : QAccessibleApplication::child(index);
}

int AccessibleApplication::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && child == openMenu() ? QAccessibleApplication::childCount()
                                                 : QAccessibleApplication::indexOfChild(child);
}

void showOpenMenusToAssistiveTechnology() {
  QAccessible::installFactory(makeInterface);
}

}  // namespace roomlattice::platform::x11

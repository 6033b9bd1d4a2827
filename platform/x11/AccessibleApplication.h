#pragma once

#include <QAccessibleObject>

namespace roomlattice::platform::x11 {

/// The program as assistive technology sees it: its windows, and the menu that is open. The toolkit would show a menu
/// as a part of the window that it belongs to, but the program's menus belong to none.
class AccessibleApplication final : public QAccessibleApplication {
 public:
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
};

/// To be called once, before the toolkit is first asked for the accessible form of the application.
void showOpenMenusToAssistiveTechnology();

}  // namespace roomlattice::platform::x11

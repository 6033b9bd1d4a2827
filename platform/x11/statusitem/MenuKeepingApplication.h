#pragma once

#include <QApplication>

namespace roomlattice::platform::x11 {

/// A Qt application whose menus stay open when the last of its windows loses the keyboard. The toolkit would close
/// them, up to half a second later; but the menu of the status item never needed the keyboard of a window, and may just
/// have been opened.
class MenuKeepingApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace roomlattice::platform::x11

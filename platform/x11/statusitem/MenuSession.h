#pragma once

#include "platform/Menu.h"
#include "platform/x11/windows/HostedView.h"

#include <QMenu>
#include <QPoint>
#include <vector>

namespace roomlattice::platform::x11 {

/// One opening of a menu: a native popup with the menu's items, its rows worked by mouse and keyboard. It is made up to
/// date, and keeps nothing of the items after it has closed. Main thread only.
class MenuSession final : private QObject {
 public:
  /// The menu must outlive it.
  explicit MenuSession(Menu& menu);
  ~MenuSession() override;

  /// Opens the popup with its top right corner at `corner`, or where it fits on the screen; in Qt's coordinates.
  void open(QPoint corner);

  bool isOpen() const { return popup_.isVisible(); }

 private:
  struct Row {
    QAction* action;
    HostedView* canvas;
  };

  void addRow(View& view);
  void addCommand(const CommandItem& command);
  HostedView* canvasOf(const QAction* action) const;

  /// The row that the pointer or the keyboard is on, or none.
  void highlight(HostedView* canvas);
  void leaveRows();

  bool eventFilter(QObject* watched, QEvent* event) override;
  bool runShortcut(const QKeyEvent& key);

  Menu& menu_;
  QMenu popup_;
  std::vector<Row> rows_;
  HostedView* highlighted_ = nullptr;
};

}  // namespace roomlattice::platform::x11

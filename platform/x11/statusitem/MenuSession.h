#pragma once

#include "platform/Menu.h"
#include "platform/x11/windows/HostedView.h"

#include <QMenu>
#include <QRect>
#include <functional>
#include <memory>
#include <vector>

class QWidgetAction;

namespace roomlattice::platform::x11 {

/// A menu while it is open: a native popup with the menu's items, its rows worked by mouse and keyboard. The rows are
/// hosted exactly as long as the session lives.
class MenuSession final : private QObject {
 public:
  /// Has the menu brought up to date and opens it below `anchor`, in Qt's coordinates, with their right edges in line;
  /// above it or where it fits, if there is no room. The menu must outlive the session. Commands run on a later turn,
  /// when the menu has gone, unless `owner` has gone as well by then. `closed` is called when the menu closes, and has
  /// to end the session.
  MenuSession(Menu& menu, const QRect& anchor, QObject& owner, std::function<void()> closed);
  ~MenuSession() override;

 private:
  struct Row {
    QWidgetAction* action;
    std::unique_ptr<HostedView> host;
  };

  void addItems(Menu& menu, QObject& owner);
  void addRow(View& view);
  void addCommand(const CommandItem& command, QObject& owner);
  void open(const QRect& anchor);
  void close();

  HostedView* hostOf(const QAction* action) const;

  /// The row that the pointer or the keyboard is on, or none.
  void highlight(HostedView* row);

  bool eventFilter(QObject* watched, QEvent* event) override;
  bool runShortcut(const QKeyEvent& key);

  std::function<void()> closed_;
  std::unique_ptr<QMenu> popup_;
  std::vector<Row> rows_;
  HostedView* highlighted_ = nullptr;
};

}  // namespace roomlattice::platform::x11

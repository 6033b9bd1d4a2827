#pragma once

#include "platform/Menu.h"
#include "platform/x11/statusitem/MenuTyping.h"
#include "platform/x11/windows/HostedView.h"

#include <QMenu>
#include <QRect>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace roomlattice::platform::x11 {

/// A menu while it is open: a native popup with the menu's items, worked by mouse and keyboard. Beside the toolkit's
/// own keys and the commands' shortcuts, F2 presses the button of the row under the cursor, which renames it; digits
/// choose a row by its number, and letters move the cursor to a name. A click beside the menu closes it, and is heard
/// by nobody else. The rows are hosted exactly as long as the session lives.
class MenuSession final : private QObject {
 public:
  /// Has the menu brought up to date and opens it below `anchor`, in Qt's coordinates, with their right edges in line;
  /// above it or where it fits, if there is no room, but never on another screen than that of the anchor. `accent` is
  /// the colour of what is under the pointer. The menu must outlive the session. Commands run on a later turn, when the
  /// menu has gone, unless `owner` has gone as well by then. `closed` is called when the menu closes, and has to end
  /// the session.
  MenuSession(Menu& menu, const QRect& anchor, const Color& accent, QObject& owner, std::function<void()> closed);
  ~MenuSession() override;

 private:
  struct Row {
    QAction* action;
    std::unique_ptr<HostedView> host;
  };

  void addItems(Menu& menu, const Color& accent, QObject& owner);
  void addRow(const ViewItem& item);
  void addCommand(const CommandItem& command, const Color& accent, QObject& owner);
  QAction* addHosted(View& view);
  void open(const QRect& anchor);
  void close();

  /// The row that the pointer or the keyboard is on, or none.
  void highlight(HostedView* row);
  void moveCursor(std::size_t row);
  std::optional<std::size_t> placeOf(const QAction* action) const;
  /// As a key would; ends this session.
  void choose(QAction& action);

  bool eventFilter(QObject* watched, QEvent* event) override;
  bool press(const QMouseEvent& event);
  bool release(const QMouseEvent& event);
  bool work(const QKeyEvent& key);
  bool runShortcut(const QKeyEvent& key);
  bool pressButton();
  bool type(QChar character);
  bool goToNumber(int digit);
  bool goToName(QChar letter);

  std::function<void()> closed_;
  // What commands are shown by, after the menu's own rows.
  std::vector<std::unique_ptr<View>> commands_;
  std::unique_ptr<QMenu> popup_;
  std::vector<Row> rows_;
  HostedView* highlighted_ = nullptr;
  MenuTyping typing_;
  bool isPressedOutside_ = false;
};

}  // namespace roomlattice::platform::x11

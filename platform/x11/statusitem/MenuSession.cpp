#include "platform/x11/statusitem/MenuSession.h"

#include "platform/x11/drawing/QtValues.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWidgetAction>
#include <algorithm>
#include <type_traits>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {

MenuSession::MenuSession(Menu& menu, const QRect& anchor, QObject& owner, std::function<void()> closed)
    : closed_(std::move(closed)), popup_(std::make_unique<QMenu>()) {
  // The click that closes the menu is not to open it again.
  popup_->setAttribute(Qt::WA_NoMouseReplay);
  menu.needsUpdate(menu);
  addItems(menu, owner);
  connect(popup_.get(), &QMenu::hovered, this, [this](QAction* action) { highlight(hostOf(action)); });
  connect(popup_.get(), &QMenu::aboutToHide, this, [this] { close(); });
  popup_->installEventFilter(this);
  open(anchor);
}

MenuSession::~MenuSession() {
  highlight(nullptr);
}

void MenuSession::addItems(Menu& menu, QObject& owner) {
  for (const MenuItem& item : menu.items) {
    std::visit(
        [&](const auto& one) {
          using Item = std::decay_t<decltype(one)>;
          if constexpr (std::is_same_v<Item, ViewItem>) {
            addRow(*one.view);
          } else if constexpr (std::is_same_v<Item, CommandItem>) {
            addCommand(one, owner);
          } else {
            popup_->addSeparator();
          }
        },
        item);
  }
}

void MenuSession::addRow(View& view) {
  auto host = std::make_unique<HostedView>(view, *popup_);
  auto* action = new QWidgetAction(popup_.get());
  action->setDefaultWidget(&host->widget());
  action->setText(withoutShortcuts(host->widget().accessibleName()));
  host->onCancelMenuTracking = [popup = popup_.get()] { popup->close(); };
  host->onHover = [this, row = host.get(), action](Hover hover) {
    if (hover == Hover::Entered) {
      popup_->setActiveAction(action);
    }
    highlight(hover == Hover::Entered ? row : nullptr);
  };
  // This is the keyboard's way, and comes when the menu has closed; a click goes to the row itself.
  connect(action, &QAction::triggered, action, [&view] { view.mouseUp({}); });
  popup_->addAction(action);
  rows_.push_back({action, std::move(host)});
}

void MenuSession::addCommand(const CommandItem& command, QObject& owner) {
  QAction* action = popup_->addAction(withoutShortcuts(toQt(command.title)));
  if (!command.keyEquivalent.empty()) {
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + toQt(command.keyEquivalent)));
    action->setShortcutVisibleInContextMenu(true);
  }
  // The command may take long, or end the program.
  connect(
      action, &QAction::triggered, &owner, [run = command.action] { run(); }, Qt::QueuedConnection);
}

void MenuSession::open(const QRect& anchor) {
  const QSize size = popup_->sizeHint();
  const QScreen* screen = QGuiApplication::screenAt(anchor.center());
  const int below = anchor.top() + anchor.height();
  const bool fits =
      screen == nullptr || below + size.height() <= screen->geometry().top() + screen->geometry().height();
  popup_->popup({anchor.left() + anchor.width() - size.width(), fits ? below : anchor.top() - size.height()});
  // The widest item decides how wide the menu is, and all rows are as wide as it.
  for (const Row& row : rows_) {
    View& view = row.host->view();
    view.setFrame({{}, {static_cast<double>(popup_->actionGeometry(row.action).width()), view.frame().size.height}});
  }
}

void MenuSession::close() {
  // The toolkit is still at work in the popup.
  popup_.release()->deleteLater();
  const std::function<void()> closed = std::move(closed_);
  closed();
}

HostedView* MenuSession::hostOf(const QAction* action) const {
  const auto row = std::ranges::find(rows_, action, &Row::action);
  return row == rows_.end() ? nullptr : row->host.get();
}

void MenuSession::highlight(HostedView* row) {
  if (row == highlighted_) {
    return;
  }
  if (highlighted_ != nullptr) {
    highlighted_->view().mouseExited();
  }
  highlighted_ = row;
  if (row != nullptr) {
    row->view().mouseEntered();
  }
}

bool MenuSession::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && runShortcut(static_cast<const QKeyEvent&>(*event))) {
    return true;
  }
  return QObject::eventFilter(watched, event);
}

/// Shortcuts of a popup that belongs to no window are shown but not heard by the toolkit.
bool MenuSession::runShortcut(const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  const QList<QAction*> actions = popup_->actions();
  const auto found = std::ranges::find_if(
      actions, [&](const QAction* action) { return !action->shortcut().isEmpty() && action->shortcut() == pressed; });
  if (found == actions.end()) {
    return false;
  }
  // Closing the popup ends this session.
  popup_->close();
  (*found)->trigger();
  return true;
}

}  // namespace roomlattice::platform::x11

#include "platform/x11/statusitem/MenuSession.h"

#include "platform/x11/drawing/QtValues.h"

#include <QAction>
#include <QKeyEvent>
#include <QWidgetAction>
#include <algorithm>
#include <type_traits>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

/// The toolkit takes a single ampersand for the mark of a mnemonic.
QString title(QString text) {
  return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

MenuSession::MenuSession(Menu& menu) : menu_(menu) {
  // The click that closes the menu is not to open it again.
  popup_.setAttribute(Qt::WA_NoMouseReplay);
  if (menu_.needsUpdate) {
    menu_.needsUpdate(menu_);
  }
  for (const MenuItem& item : menu_.items) {
    std::visit(
        [this](const auto& one) {
          using Item = std::decay_t<decltype(one)>;
          if constexpr (std::is_same_v<Item, ViewItem>) {
            addRow(*one.view);
          } else if constexpr (std::is_same_v<Item, CommandItem>) {
            addCommand(one);
          } else {
            popup_.addSeparator();
          }
        },
        item);
  }
  connect(&popup_, &QMenu::hovered, this, [this](QAction* action) { highlight(canvasOf(action)); });
  connect(&popup_, &QMenu::aboutToHide, this, [this] { leaveRows(); });
  popup_.installEventFilter(this);
}

MenuSession::~MenuSession() = default;

void MenuSession::addRow(View& view) {
  auto* canvas = new HostedView(view, &popup_);
  auto* action = new QWidgetAction(&popup_);
  action->setDefaultWidget(canvas);
  action->setText(title(canvas->accessibleName()));
  canvas->onCancelMenuTracking = [this] { popup_.close(); };
  canvas->onHover = [this, canvas, action](bool inside) {
    if (inside) {
      popup_.setActiveAction(action);
    }
    highlight(inside ? canvas : nullptr);
  };
  // By keyboard; a click goes to the canvas itself.
  connect(action, &QAction::triggered, this, [&view] { view.mouseUp({}); });
  popup_.addAction(action);
  rows_.push_back({action, canvas});
}

void MenuSession::addCommand(const CommandItem& command) {
  QAction* action = popup_.addAction(title(toQt(command.title)));
  if (!command.keyEquivalent.empty()) {
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + toQt(command.keyEquivalent)));
    action->setShortcutVisibleInContextMenu(true);
  }
  // Once the menu has gone: the command may take long, or end the program.
  connect(
      action, &QAction::triggered, this, [run = command.action] { run(); }, Qt::QueuedConnection);
}

void MenuSession::open(QPoint corner) {
  popup_.popup(corner - QPoint(popup_.sizeHint().width(), 0));
  // The widest item decides how wide the menu is, and all rows are as wide as it.
  for (const Row& row : rows_) {
    View& view = row.canvas->view();
    view.setFrame({{}, {static_cast<double>(popup_.actionGeometry(row.action).width()), view.frame().size.height}});
  }
}

HostedView* MenuSession::canvasOf(const QAction* action) const {
  const auto row = std::ranges::find(rows_, action, &Row::action);
  return row == rows_.end() ? nullptr : row->canvas;
}

void MenuSession::highlight(HostedView* canvas) {
  if (canvas == highlighted_) {
    return;
  }
  if (highlighted_ != nullptr) {
    highlighted_->view().mouseExited();
  }
  highlighted_ = canvas;
  if (canvas != nullptr) {
    canvas->view().mouseEntered();
  }
}

/// The rows live until the menu opens again, but are in no window any more: an edit that was under way is over.
void MenuSession::leaveRows() {
  highlight(nullptr);
  for (const Row& row : rows_) {
    row.canvas->view().setHost(nullptr);
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
  const QList<QAction*> actions = popup_.actions();
  const auto found = std::ranges::find_if(
      actions, [&](const QAction* action) { return !action->shortcut().isEmpty() && action->shortcut() == pressed; });
  if (found == actions.end()) {
    return false;
  }
  popup_.close();
  (*found)->trigger();
  return true;
}

}  // namespace roomlattice::platform::x11

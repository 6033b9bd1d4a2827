#include "platform/x11/statusitem/MenuSession.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/statusitem/CommandRow.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWidgetAction>
#include <algorithm>
#include <type_traits>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

constexpr double highlightAlpha = 0.18;
constexpr Size usualRow{220.0, 24.0};
constexpr double usualTextX = 14.0;

/// Commands are in line with the names in the rows above them.
CommandRow::Style styleBeside(const HostedView* row, const Color& accent) {
  CommandRow::Style style{
      .height = usualRow.height, .textX = usualTextX, .highlight = accent.withAlpha(highlightAlpha)};
  if (row == nullptr) {
    return style;
  }
  style.height = row->view().frame().size.height;
  for (const ViewElement& element : row->view().content().elements) {
    if (std::holds_alternative<TextElement>(element.kind)) {
      style.textX = element.frame.minX();
      break;
    }
  }
  return style;
}

/// Where the upper left corner of a menu of that size is to be.
QPoint menuCorner(const QRect& anchor, const QSize& size) {
  const QScreen* screen = QGuiApplication::screenAt(anchor.center());
  const int left = anchor.left() + anchor.width() - size.width();
  const int below = anchor.top() + anchor.height();
  if (screen == nullptr) {
    return {left, below};
  }
  // The toolkit would take a corner beyond these edges for one on the neighbouring screen.
  const QRect area = screen->geometry();
  const bool fits = below + size.height() <= area.top() + area.height();
  return {std::max(left, area.left()), fits ? below : std::max(anchor.top() - size.height(), area.top())};
}

}  // namespace

MenuSession::MenuSession(Menu& menu, const QRect& anchor, const Color& accent, QObject& owner,
                         std::function<void()> closed)
    : closed_(std::move(closed)), popup_(std::make_unique<QMenu>()) {
  popup_->setAccessibleName(QStringLiteral("Desktops"));
  menu.needsUpdate(menu);
  addItems(menu, accent, owner);
  connect(popup_.get(), &QMenu::hovered, this, [this](QAction* action) {
    const std::optional<std::size_t> row = placeOf(action);
    highlight(row ? rows_[*row].host.get() : nullptr);
  });
  connect(popup_.get(), &QMenu::aboutToHide, this, [this] { close(); });
  popup_->installEventFilter(this);
  open(anchor);
}

MenuSession::~MenuSession() {
  highlight(nullptr);
}

void MenuSession::addItems(Menu& menu, const Color& accent, QObject& owner) {
  for (const MenuItem& item : menu.items) {
    std::visit(
        [&](const auto& one) {
          using Item = std::decay_t<decltype(one)>;
          if constexpr (std::is_same_v<Item, ViewItem>) {
            addRow(one);
          } else if constexpr (std::is_same_v<Item, CommandItem>) {
            addCommand(one, accent, owner);
          } else {
            popup_->addSeparator();
          }
        },
        item);
  }
}

void MenuSession::addRow(const ViewItem& item) {
  QAction* action = addHosted(*item.view);
  action->setCheckable(true);
  action->setChecked(item.state == RowState::Chosen);
  // This is the keyboard's way, and comes when the menu has closed; a click goes to the row itself.
  connect(action, &QAction::triggered, action, [view = item.view.get()] { view->mouseUp({}); });
}

void MenuSession::addCommand(const CommandItem& command, const Color& accent, QObject& owner) {
  const QKeySequence shortcut(command.keyEquivalent.empty() ? QString()
                                                            : QStringLiteral("Ctrl+") + toQt(command.keyEquivalent));
  const std::string shortcutText = shortcut.toString(QKeySequence::NativeText).toStdString();
  const CommandRow::Style style = styleBeside(rows_.empty() ? nullptr : rows_.front().host.get(), accent);
  const std::size_t place = rows_.size();
  commands_.push_back(std::make_unique<CommandRow>(command.title, shortcutText, style,
                                                   [this, place] { choose(*rows_[place].action); }));
  QAction* action = addHosted(*commands_.back());
  action->setShortcut(shortcut);
  // The command may take long, or end the program.
  connect(
      action, &QAction::triggered, &owner, [run = command.action] { run(); }, Qt::QueuedConnection);
}

QAction* MenuSession::addHosted(View& view) {
  auto host = std::make_unique<HostedView>(view, *popup_);
  auto* action = new QWidgetAction(popup_.get());
  action->setDefaultWidget(&host->widget());
  host->onCancelMenuTracking = [popup = popup_.get()] { popup->close(); };
  host->onHover = [this, row = host.get(), action](Hover hover) {
    if (hover == Hover::Entered) {
      popup_->setActiveAction(action);
      highlight(row);
    } else if (highlighted_ == row) {
      // A button that appears under the pointer has the toolkit tell again of the row that the pointer has left before.
      highlight(nullptr);
    }
  };
  host->onChange = [row = host.get(), action] {
    // While a name is being edited it is not to be seen.
    if (const QString name = row->widget().accessibleName(); !name.isEmpty()) {
      action->setText(withoutShortcuts(name));
    }
  };
  host->onChange();
  popup_->addAction(action);
  rows_.push_back({action, std::move(host)});
  return action;
}

void MenuSession::open(const QRect& anchor) {
  popup_->popup(menuCorner(anchor, popup_->sizeHint()));
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

void MenuSession::moveCursor(std::size_t row) {
  popup_->setActiveAction(rows_[row].action);
  highlight(rows_[row].host.get());
}

std::optional<std::size_t> MenuSession::placeOf(const QAction* action) const {
  const auto row = std::ranges::find(rows_, action, &Row::action);
  return row == rows_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(row - rows_.begin()));
}

void MenuSession::choose(QAction& action) {
  popup_->close();
  action.trigger();
}

bool MenuSession::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return work(static_cast<const QKeyEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return press(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return release(static_cast<const QMouseEvent&>(*event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

/// The toolkit would close the menu at once. Whoever is under the pointer would hear of the release then, for which
/// some panels open the menu again.
bool MenuSession::press(const QMouseEvent& event) {
  isPressedOutside_ = !popup_->rect().contains(event.position().toPoint());
  return isPressedOutside_;
}

bool MenuSession::release(const QMouseEvent& event) {
  if (!isPressedOutside_ || event.buttons() != Qt::NoButton) {
    return false;
  }
  popup_->close();
  return true;
}

bool MenuSession::work(const QKeyEvent& key) {
  if (runShortcut(key)) {
    return true;
  }
  const bool isPlain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  if (isPlain && key.key() == Qt::Key_F2) {
    return pressButton();
  }
  if (isPlain && key.text().size() == 1 && type(key.text().front())) {
    return true;
  }
  if (!key.text().isEmpty() || key.key() == Qt::Key_Up || key.key() == Qt::Key_Down) {
    typing_.startAgain();
  }
  return false;
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
  choose(**found);
  return true;
}

bool MenuSession::pressButton() {
  if (highlighted_ != nullptr) {
    highlighted_->view().buttonClicked();
  }
  return true;
}

bool MenuSession::type(QChar character) {
  if (character.isDigit()) {
    return goToNumber(character.digitValue());
  }
  return character.isLetter() && goToName(character);
}

bool MenuSession::goToNumber(int digit) {
  const auto count = static_cast<int>(rows_.size() - commands_.size());
  if (const std::optional<MenuTyping::Row> row = typing_.digit(digit, count)) {
    const auto place = static_cast<std::size_t>(row->index);
    row->isCertain ? choose(*rows_[place].action) : moveCursor(place);
  }
  return true;
}

bool MenuSession::goToName(QChar letter) {
  QStringList names;
  for (const Row& row : rows_) {
    names.append(row.host->widget().accessibleName());
  }
  const std::optional<std::size_t> current = placeOf(popup_->activeAction());
  const std::optional<int> found =
      typing_.letter(letter, names, current ? std::optional(static_cast<int>(*current)) : std::nullopt);
  if (found) {
    moveCursor(static_cast<std::size_t>(*found));
  }
  return true;
}

}  // namespace roomlattice::platform::x11
